#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

/// A bar on standard error while a long piece of work runs; shows nothing unless standard error is
/// a terminal, and nothing for work that is done within a fifth of a second.
class ProgressBar
{
public:
    explicit ProgressBar(std::string label);
    ~ProgressBar();
    ProgressBar(ProgressBar const &) = delete;
    ProgressBar &operator=(ProgressBar const &) = delete;

    /// `fraction` of the work, 0 to 1, is done.
    void show(double fraction);

private:
    std::string m_label;
    bool m_active;
    bool m_drawn = false;
    int m_lastTick = -1;
    std::chrono::steady_clock::time_point m_start;
};

/// The same for work that can't tell how far it is: shows the seconds that it has taken.
class ProgressClock
{
public:
    explicit ProgressClock(std::string label);
    ~ProgressClock();
    ProgressClock(ProgressClock const &) = delete;
    ProgressClock &operator=(ProgressClock const &) = delete;

private:
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_done = false;
    std::thread m_thread;
};
