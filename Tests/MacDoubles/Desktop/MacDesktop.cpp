#include "MacDoubles/Desktop/MacDesktop.h"

#include <mutex>
#include <thread>

namespace Panorel::MacDoubles {

namespace {

std::unique_ptr<MacDesktop> current;
std::mutex faultsLock;
QStringList faults;
const std::thread::id mainThread = std::this_thread::get_id();

} // namespace

MacDesktop &desktop()
{
    if (!current)
        current = std::make_unique<MacDesktop>();
    return *current;
}

void resetDesktop()
{
    current.reset();
}

void addFault(const QString &fault)
{
    const std::lock_guard lock(faultsLock);
    faults << fault;
}

QStringList takeFaults()
{
    const std::lock_guard lock(faultsLock);
    return std::exchange(faults, {});
}

QStringList takeRemains()
{
    QStringList left =
        takeFaults() + takeHeldHotKeys() + takeSources() + takeUnsynchronized() + takeLeaks();
    if (std::exchange(desktop().services.observers, 0) != 0)
        left << QStringLiteral("an observer of launches");
    return left;
}

bool isMainThread()
{
    return std::this_thread::get_id() == mainThread;
}

void expectMainThread(const char *call)
{
    if (!isMainThread())
        addFault(QLatin1String(call) + QStringLiteral(" called off the main thread"));
}

} // namespace Panorel::MacDoubles
