#include <OrvelCore/script/mzComServerStateEventC.h>

#include <OrvelCore/script/classRegistry_p.h>
#include <OrvelCore/script/serverEvents_p.h>
#include <OrvelCore/script/valueTypeRegistry_p.h>

#include <mutex>

namespace {

struct Server
{
    std::mutex mutex;
    QVector<mzComServerStateEventC *> waiting;
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
    notifiedEvent = event;
    event->serverStarted();
    notifiedEvent = nullptr;
}

} // namespace

void const *serverEvents::notified()
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
        const std::lock_guard<std::mutex> lock(server().mutex);
        server().waiting.removeOne(this);
    }
    classRegistry::removeOwner(this);
    valueTypeRegistry::removeOwner(this);
}

void mzComServerStateEventC::init()
{
    bool isRunning = false;
    {
        const std::lock_guard<std::mutex> lock(server().mutex);
        server().waiting.append(this);
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
    QVector<mzComServerStateEventC *> told;
    {
        const std::lock_guard<std::mutex> lock(server().mutex);
        if (server().isRunning) {
            return;
        }
        server().isRunning = true;
        told = server().waiting;
    }
    for (mzComServerStateEventC *event : told) {
        if (event->wants(mzServerStarted)) {
            tellStart(event);
        }
    }
}

void mzComServerStateEventC::stopServer()
{
    QVector<mzComServerStateEventC *> told;
    {
        const std::lock_guard<std::mutex> lock(server().mutex);
        if (!server().isRunning) {
            return;
        }
        server().isRunning = false;
        told = server().waiting;
    }
    for (auto event = told.crbegin(); event != told.crend(); ++event) {
        if ((*event)->wants(mzServerDone)) {
            (*event)->serverDone();
        }
    }
}

QVector<mzComServerStateEventC *> mzComServerStateEventC::waiting()
{
    const std::lock_guard<std::mutex> lock(server().mutex);
    return server().waiting;
}
