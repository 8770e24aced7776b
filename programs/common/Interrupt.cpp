#include "Interrupt.h"

#include "Progress.h"

#include <csignal>
#include <thread>

#include <pthread.h>
#include <unistd.h>

namespace {

constexpr int endingSignals[] = {SIGINT, SIGTERM, SIGHUP};

std::mutex &endingMutex()
{
    // Never destroyed: the watching thread may hold it while the program ends.
    static auto *const mutex = new std::mutex;
    return *mutex;
}

bool isIgnored(int signal)
{
    struct sigaction action = {};
    sigaction(signal, nullptr, &action);
    return action.sa_handler == SIG_IGN;
}

} // namespace

void installInterrupt()
{
    sigset_t watched;
    sigemptyset(&watched);
    for (int const signal : endingSignals) {
        if (!isIgnored(signal)) {
            sigaddset(&watched, signal);
        }
    }
    pthread_sigmask(SIG_BLOCK, &watched, nullptr);
    std::thread([watched] {
        int signal = 0;
        sigwait(&watched, &signal);
        std::lock_guard<std::mutex> const lock(endingMutex());
        Progress::erase();
        _exit(128 + signal);
    }).detach();
}

NotNow::NotNow()
{
    endingMutex().lock();
}

NotNow::~NotNow()
{
    endingMutex().unlock();
}
