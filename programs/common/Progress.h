#pragma once

/// @file
/// One progress bar over all the work of a program.

#include <string>

/// A bar on standard error with the share of the work that is done and the time that is left.
///
/// It shows nothing unless standard error is a terminal, and nothing before half a second is over.
/// A thread of its own draws it, so that the time goes on where the work can't tell how far it is.
/// One lives at a time; its functions are called from one thread.
class Progress
{
public:
    Progress();
    /// Erases the bar.
    ~Progress();
    Progress(Progress const &) = delete;
    Progress &operator=(Progress const &) = delete;

    /// The work named begins; it leads from the share done so far to `end` (0 to 1).
    void stage(std::string const &name, double end);
    /// `share` (0 to 1) of the stage is done.
    void show(double share);
    /// Begins again with another input: `done` of `all` inputs are through.
    void restart(int done, int all);

    /// Erases the bar of the program, if one is drawn; for messages between.
    static void erase();

private:
    struct Drawer;
    Drawer *m_drawer; ///< null unless standard error is a terminal
    double m_begin = 0.0;
    double m_end = 0.0;
    double m_inputBegin = 0.0;
    double m_inputShare = 1.0;
};
