#pragma once

/// @file
/// News of the server's start and end.

#include <OrvelCore/OrvelCoreExport.h>

#include <QtCore/QVector>

/// The events that an object can ask for.
enum mzComServerStateE { mzServerStarted = 16, mzServerDone = 64 };

/// An object that wants to know when the server starts and when it is done. Libraries have one per
/// script class, as a global object: it is built when the library is loaded and destroyed when the
/// library goes, which takes the classes and value types away again that it registered.
///
/// Objects are not owned. They may come and go on any thread, but not one that is being told: start
/// and stop the server while no library comes or goes on another thread.
class ORVELCORE_EXPORT mzComServerStateEventC
{
public:
    /// `events` is a sum of mzComServerStateE. Nothing happens before `init`.
    explicit mzComServerStateEventC(int events);
    mzComServerStateEventC(mzComServerStateEventC const &) = delete;
    mzComServerStateEventC &operator=(mzComServerStateEventC const &) = delete;
    virtual ~mzComServerStateEventC();

    /// The server starts: the time to register classes. Returns 0.
    virtual int serverStarted() = 0;
    /// The server is done. Returns 0.
    virtual int serverDone();

    /// Tells all objects that the server starts, in the order of their `init`. Later starts,
    /// without a stop in between, do nothing. What an object throws comes through; the rest are
    /// then not told, and the server counts as stopped, so that the start can be tried again.
    static void startServer();
    /// Tells all objects that the server is done, the last one first.
    static void stopServer();
    /// The objects that wait for events, in the order of their `init`.
    static QVector<mzComServerStateEventC *> waiting();

protected:
    /// Enlists the object; the last step of the most derived constructor. If the server runs
    /// already, as it does for a library that is loaded late, the start is told at once.
    void init();

private:
    bool wants(mzComServerStateE event) const;

    int m_events;
};
