// runtime/guireloadfiles.cpp: see guireloadfiles.h.
#include "runtime/guireloadfiles.h"

#include "foundation/vela-qt.h"

#include <QFile>
#include <QString>
#include <map>
#include <mutex>
#include <set>
#include <sys/stat.h>
#include <utility>

namespace {

/// Never destroyed: pages are read while the process exits.
struct noted
{
    std::mutex lock;
    guiFileListener listener;                            // guarded by lock
    std::map<ScriptObject*, std::set<QString>> byWindow; // guarded by lock
};

noted& theNoted()
{
    static auto& all = *new noted;
    return all;
}

std::map<QString, sstring>& theTexts()
{
    static auto& texts = *new std::map<QString, sstring>; // GUI thread
    return texts;
}

QString stampOf(QString const& path)
{
    struct stat info = {};
    if (stat(QFile::encodeName(path).constData(), &info) != 0)
        return {};
    constexpr qint64 kNanoseconds = 1'000'000'000;
    return QStringLiteral("%1 %2 %3")
        .arg(qint64{info.st_size})
        .arg(info.st_mtim.tv_sec * kNanoseconds + info.st_mtim.tv_nsec)
        .arg(quint64{info.st_ino});
}

} // namespace

void guiReloadFiles_listen(guiFileListener listener)
{
    noted& all = theNoted();
    std::lock_guard<std::mutex> const guard(all.lock);
    all.listener = std::move(listener);
    all.byWindow.clear();
}

void guiReloadFiles_note(ScriptObject* window, sstring const& path)
{
    if (!window || path.getLength() == 0)
        return;
    noted& all = theNoted();
    std::unique_lock<std::mutex> guard(all.lock);
    if (!all.byWindow[window].insert(sstoq(path)).second)
        return;
    guiFileListener const listener = all.listener;
    guard.unlock(); // the listener calls the host
    if (listener)
        listener(window, path, qtoss(stampOf(sstoq(path))));
}

void guiReloadFiles_forget(ScriptObject* window)
{
    noted& all = theNoted();
    std::lock_guard<std::mutex> const guard(all.lock);
    all.byWindow.erase(window);
}

void guiReloadFiles_keepText(sstring const& path, sstring const& text)
{
    assertOnGuiThread();
    theTexts()[sstoq(path)] = text;
}

std::optional<sstring> guiReloadFiles_textOf(sstring const& path)
{
    assertOnGuiThread();
    if (theTexts().empty())
        return std::nullopt;
    auto const found = theTexts().find(sstoq(path));
    return found == theTexts().end() ? std::nullopt : std::optional(found->second);
}

bool guiReloadFiles_hasText(sstring const& path)
{
    assertOnGuiThread();
    return !theTexts().empty() && theTexts().contains(sstoq(path));
}

void guiReloadFiles_forgetTexts()
{
    assertOnGuiThread();
    theTexts().clear();
}
