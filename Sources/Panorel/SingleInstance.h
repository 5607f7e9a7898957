#pragma once

#include "Panorel/FileLock.h"
#include "Panorel/RequestServer.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace Panorel {

/// The right to be the one running program of a data directory. A second start hands its wish, to
/// see the panel, to the first one and ends; so does a command that is typed.
class SingleInstance {
public:
    static constexpr std::chrono::milliseconds patience{5000};

    /// What came of asking the one that runs.
    struct Answer {
        bool isRunning = false;
        std::optional<QString> reply; ///< absent where it runs but does not answer
    };

    /// Null where another program has the directory and has been told to open its panel: then this
    /// one is to end, with success. Throws std::runtime_error, its text fit for the user, where the
    /// other one doesn't answer within the patience, or where the lock can't be made at all.
    /// The directory is that of Paths::dataDir(), however it is spelled. Needs a QCoreApplication.
    /// To be called before anything in the directory is read.
    static std::unique_ptr<SingleInstance> acquire(std::chrono::milliseconds within = patience);

    /// Asks the program that runs for the directory, if any, one line; waits that long for its
    /// reply. Needs a QCoreApplication. Throws as acquire() does.
    static Answer ask(const QString &request, std::chrono::milliseconds within);

    ~SingleInstance();

    /// Called, from the event loop, for each second start; also for one that came before this call.
    void setActivatedCallback(std::function<void()> activated);

    /// Answers what is asked by ask(), from the event loop, without line feeds.
    void setRequestHandler(std::function<QString(const QString &request)> handler);

private:
    SingleInstance(std::unique_ptr<FileLock> lock, const QString &socket);
    QString answer(const QString &request);
    void activateLater();

    std::unique_ptr<FileLock> m_lock; ///< held until the server below has gone
    std::function<void()> m_activated;
    bool m_activationMissed = false;
    std::function<QString(const QString &request)> m_handler;
    RequestServer m_server;
};

} // namespace Panorel
