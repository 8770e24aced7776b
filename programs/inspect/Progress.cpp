#include "Progress.h"

#include <algorithm>
#include <cstdio>

#include <unistd.h>

namespace {

constexpr int barWidth = 30;
constexpr std::chrono::milliseconds patience(200);

bool isTerminal()
{
    return isatty(STDERR_FILENO) != 0;
}

void eraseLine()
{
    std::fputs("\r\033[K", stderr);
    std::fflush(stderr);
}

} // namespace

ProgressBar::ProgressBar(std::string label)
    : m_label(std::move(label))
    , m_active(isTerminal())
    , m_start(std::chrono::steady_clock::now())
{
}

ProgressBar::~ProgressBar()
{
    if (m_drawn) {
        eraseLine();
    }
}

void ProgressBar::show(double fraction)
{
    int const tick = int(std::clamp(fraction, 0.0, 1.0) * 100.0);
    if (!m_active || tick == m_lastTick || std::chrono::steady_clock::now() - m_start < patience) {
        return;
    }
    m_lastTick = tick;
    m_drawn = true;
    std::string bar(barWidth, '.');
    std::fill_n(bar.begin(), tick * barWidth / 100, '#');
    std::fprintf(stderr, "\r\033[K%s [%s] %3d%%", m_label.c_str(), bar.c_str(), tick);
    std::fflush(stderr);
}

ProgressClock::ProgressClock(std::string label)
{
    if (!isTerminal()) {
        return;
    }
    m_thread = std::thread([this, label = std::move(label)] {
        auto const start = std::chrono::steady_clock::now();
        std::unique_lock<std::mutex> lock(m_mutex);
        bool drawn = false;
        while (!m_wake.wait_for(lock, patience, [this] { return m_done; })) {
            std::chrono::duration<double> const elapsed = std::chrono::steady_clock::now() - start;
            std::fprintf(stderr, "\r\033[K%s ... %.1f s", label.c_str(), elapsed.count());
            std::fflush(stderr);
            drawn = true;
        }
        if (drawn) {
            eraseLine();
        }
    });
}

ProgressClock::~ProgressClock()
{
    if (m_thread.joinable()) {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            m_done = true;
        }
        m_wake.notify_one();
        m_thread.join();
    }
}
