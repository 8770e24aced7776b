#include "Progress.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <mutex>
#include <thread>

#include <unistd.h>

namespace {

using Clock = std::chrono::steady_clock;

constexpr int barWidth = 30;
constexpr std::chrono::milliseconds beat(200);
constexpr double patience = 0.5; // seconds before the bar shows

std::atomic<bool> isDrawn(false);

std::string timeLeft(double seconds)
{
    char text[64];
    if (seconds >= 90.0) {
        std::snprintf(text, sizeof text, "%.0f min left", seconds / 60.0);
    } else {
        std::snprintf(text, sizeof text, "%.0f s left", seconds);
    }
    return text;
}

} // namespace

struct Progress::Drawer
{
    std::mutex mutex;
    std::condition_variable wake;
    std::string name;
    double share = 0.0;
    bool done = false;
    Clock::time_point start = Clock::now();
    std::thread thread{[this] { run(); }};

    void run()
    {
        std::unique_lock<std::mutex> lock(mutex);
        while (!wake.wait_for(lock, beat, [this] { return done; })) {
            draw();
        }
    }

    void draw() const
    {
        double const elapsed = std::chrono::duration<double>(Clock::now() - start).count();
        if (elapsed < patience) {
            return;
        }
        std::string bar(barWidth, '.');
        std::fill_n(bar.begin(), int(share * barWidth), '#');
        std::string const left =
            share > 0.05 ? timeLeft(elapsed * (1.0 - share) / share) : std::string();
        std::fprintf(stderr, "\r\033[K%s [%s] %3.0f %% %s", name.c_str(), bar.c_str(),
                     share * 100.0, left.c_str());
        std::fflush(stderr);
        isDrawn = true;
    }
};

Progress::Progress()
    : m_drawer(isatty(STDERR_FILENO) != 0 ? new Drawer : nullptr)
{
}

Progress::~Progress()
{
    if (m_drawer != nullptr) {
        {
            std::lock_guard<std::mutex> const lock(m_drawer->mutex);
            m_drawer->done = true;
        }
        m_drawer->wake.notify_one();
        m_drawer->thread.join();
        delete m_drawer;
        erase();
    }
}

void Progress::stage(std::string const &name, double end)
{
    m_begin = m_end;
    m_end = end;
    if (m_drawer != nullptr) {
        std::lock_guard<std::mutex> const lock(m_drawer->mutex);
        m_drawer->name = name;
    }
    show(0.0);
}

void Progress::show(double share)
{
    if (m_drawer != nullptr) {
        double const stage = m_begin + (m_end - m_begin) * std::clamp(share, 0.0, 1.0);
        std::lock_guard<std::mutex> const lock(m_drawer->mutex);
        m_drawer->share = m_inputBegin + m_inputShare * stage;
    }
}

void Progress::restart(int done, int all)
{
    m_begin = 0.0;
    m_end = 0.0;
    m_inputBegin = double(done) / double(all);
    m_inputShare = 1.0 / double(all);
    show(0.0);
}

void Progress::erase()
{
    if (isDrawn.exchange(false)) {
        std::fputs("\r\033[K", stderr);
        std::fflush(stderr);
    }
}
