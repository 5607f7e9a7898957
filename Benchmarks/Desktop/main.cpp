#include "Desktop/Results.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

using namespace Panorel::Bench;

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser options;
    options.setApplicationDescription(QStringLiteral("Measures Panorel on desktops of its own."));
    options.addHelpOption();
    options.addPositionalArgument(QStringLiteral("what"),
                                  QStringLiteral("restore, settle, learn or start"));
    options.addOptions({
        {QStringLiteral("managers"), QStringLiteral("Under these window managers"),
         QStringLiteral("names"), QStringLiteral("openbox,xfwm4,kwin_x11")},
        {QStringLiteral("sizes"), QStringLiteral("With so many windows"), QStringLiteral("numbers"),
         QStringLiteral("50,200")},
        {QStringLiteral("rounds"), {}, QStringLiteral("number"), QStringLiteral("9")},
        {QStringLiteral("idle"), {}, QStringLiteral("seconds"), QStringLiteral("90")},
        {QStringLiteral("out"), {}, QStringLiteral("file"), QStringLiteral("results.json")},
    });
    options.process(application);

    Selection selection;
    selection.managers = options.value(QStringLiteral("managers")).split(u',');
    for (const QString &size : options.value(QStringLiteral("sizes")).split(u','))
        selection.sizes.push_back(size.toInt());
    selection.rounds = options.value(QStringLiteral("rounds")).toInt();
    selection.idleSeconds = options.value(QStringLiteral("idle")).toInt();

    const std::map<QString, void (*)(Results &, const Selection &)> scenarios{
        {QStringLiteral("restore"), measureRestore},
        {QStringLiteral("settle"), measureSettle},
        {QStringLiteral("learn"), measureLearn},
        {QStringLiteral("start"), measureStart},
    };
    Results results;
    for (const QString &name : options.positionalArguments()) {
        const auto scenario = scenarios.find(name);
        if (scenario == scenarios.end())
            options.showHelp(2);
        scenario->second(results, selection);
    }
    results.write(options.value(QStringLiteral("out")));
    return 0;
}
