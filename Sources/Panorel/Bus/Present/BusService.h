#pragma once

#include "Panorel/Bus/SessionBus.h"

#include <QDBusAbstractAdaptor>
#include <QDBusContext>
#include <QStringList>
#include <QVariantList>
#include <QVariantMap>

namespace Panorel {

/// The program on the session's bus: org.panorel.Panorel, object /org/panorel/Panorel. It has the
/// verbs of the command line and what a desktop needs to start the program and its actions. Where
/// another program has the name already, nothing is offered.
class BusService : public QObject, protected QDBusContext {
    Q_OBJECT

public:
    explicit BusService(SessionBus::Service service);
    ~BusService() override;

    /// The result in JSON. On failure the caller gets an error whose name ends in the status.
    QString run(const CommandRequest &request);
    void openPanel() { m_service.openPanel(); }

private:
    SessionBus::Service m_service;
};

/// A method for each verb; the results are those of --json.
class CommandsAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.panorel.Panorel")

public:
    explicit CommandsAdaptor(BusService &service);

public Q_SLOTS:
    QString Restore(bool dryRun) { return run("restore", {}, dryRun); }
    QString Undo() { return run("undo"); }
    QString Save() { return run("save"); }
    QString Stash() { return run("stash"); }
    QString Scenes() { return run("scenes"); }
    QString Apply(const QString &nameOrID, bool dryRun) { return run("apply", {nameOrID}, dryRun); }
    QString Desks() { return run("desks"); }
    QString Status() { return run("status"); }
    QString Rules() { return run("rules"); }
    QString Triggers() { return run("triggers"); }
    /// Paths are absolute.
    QString Export(const QString &file) { return run("export", {file}); }
    QString Import(const QString &file, bool dryRun) { return run("import", {file}, dryRun); }
    /// Which file it is.
    QString Log() { return run("log"); }

private:
    QString run(const char *verb, const std::vector<QString> &arguments = {}, bool dryRun = false);

    BusService &m_service;
};

/// What a desktop calls in place of starting the program (see the desktop file).
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(BusService &service);

public Q_SLOTS:
    void Activate(const QVariantMap &platformData);
    void Open(const QStringList &files, const QVariantMap &platformData);
    /// The actions are named for the verbs that they are.
    void ActivateAction(const QString &action, const QVariantList &parameter,
                        const QVariantMap &platformData);

private:
    BusService &m_service;
};

} // namespace Panorel
