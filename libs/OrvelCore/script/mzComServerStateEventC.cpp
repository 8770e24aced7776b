#include <OrvelCore/script/mzComServerStateEventC.h>

#include <OrvelCore/script/registrationOwner_p.h>
#include <OrvelCore/script/valueTypeRegistry_p.h>

#include <algorithm>
#include <iterator>
#include <mutex>
#include <vector>

namespace {

struct Server
{
    std::mutex mutex;
    std::vector<mzComServerStateEventC *> waiting;
    bool isRunning = false;
};

// Never destroyed: libraries take their things away after the static objects of this one are gone.
Server &server()
{
    static Server *const instance = new Server;
    return *instance;
}

thread_local mzComServerStateEventC const *notifiedEvent = nullptr;

void tellStart(mzComServerStateEventC *event)
{
    // A start may load a library, whose objects are then told in between, and it may throw.
    struct Restore
    {
        mzComServerStateEventC const *former = notifiedEvent;
        ~Restore() { notifiedEvent = former; }
    } const restore;
    notifiedEvent = event;
    event->serverStarted();
}

} // namespace

void const *serverEvents::notified() noexcept
{
    return notifiedEvent;
}

mzComServerStateEventC::mzComServerStateEventC(int events)
    : m_events(events)
{
}

mzComServerStateEventC::~mzComServerStateEventC()
{
    {
        std::lock_guard<std::mutex> const lock(server().mutex);
        auto &waiting = server().waiting; // taking out asks for no memory
        waiting.erase(std::remove(waiting.begin(), waiting.end(), this), waiting.end());
    }
    classRegistry::removeOwner(this);
    valueTypeRegistry::removeOwner(this);
}

void mzComServerStateEventC::init()
{
    bool isRunning = false;
    {
        std::lock_guard<std::mutex> const lock(server().mutex);
        server().waiting.push_back(this);
        isRunning = server().isRunning;
    }
    if (isRunning && wants(mzServerStarted)) {
        tellStart(this);
    }
}

bool mzComServerStateEventC::wants(mzComServerStateE event) const
{
    return (m_events & event) != 0;
}

int mzComServerStateEventC::serverDone()
{
    return 0;
}

void mzComServerStateEventC::startServer()
{
    std::vector<mzComServerStateEventC *> told;
    {
        std::lock_guard<std::mutex> const lock(server().mutex);
        if (server().isRunning) {
            return;
        }
        told = server().waiting;
        server().isRunning = true;
    }
    try {
        for (mzComServerStateEventC *event : told) {
            if (event->wants(mzServerStarted)) {
                tellStart(event);
            }
        }
    } catch (...) {
        std::lock_guard<std::mutex> const lock(server().mutex);
        server().isRunning = false;
        throw;
    }
}

void mzComServerStateEventC::stopServer()
{
    std::vector<mzComServerStateEventC *> told;
    {
        std::lock_guard<std::mutex> const lock(server().mutex);
        if (!server().isRunning) {
            return;
        }
        told = server().waiting;
        server().isRunning = false;
    }
    for (auto event = told.crbegin(); event != told.crend(); ++event) {
        if ((*event)->wants(mzServerDone)) {
            (*event)->serverDone();
        }
    }
}

QVector<mzComServerStateEventC *> mzComServerStateEventC::waiting()
{
    std::lock_guard<std::mutex> const lock(server().mutex);
    QVector<mzComServerStateEventC *> events;
    events.reserve(int(server().waiting.size()));
    std::copy(server().waiting.begin(), server().waiting.end(), std::back_inserter(events));
    return events;
}
