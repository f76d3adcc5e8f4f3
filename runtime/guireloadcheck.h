// runtime/guireloadcheck.h: reads what a reload will read, before anything of the old page goes: when something is
// wrong with it, the old page stays.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"

#include <QString>
#include <set>

class guiHtmlBase;
class mlSection;

/// One look at a page and at the pages that it loads into itself. What was read is kept in guireloadfiles.h. GUI
/// thread.
class guiReloadCheck
{
public:
    explicit guiReloadCheck(guiHtmlBase& root) : m_root(root) {}

    /// Reads, filters and parses the page in this file (a full name). What is wrong, in one line for the author; "" for
    /// nothing. Runs script: the root may be released afterwards.
    QString read(sstring const& path) TARN_ON(velaGuiRole);

private:
    QString readText(sstring const& path, sstring& text) TARN_ON(velaGuiRole);
    QString parse(sstring const& path, sstring& text) TARN_ON(velaGuiRole);
    QString readWithin(sstring const& path, mlSection* section) TARN_ON(velaGuiRole);

    guiHtmlBase& m_root;
    std::set<QString> m_seen; // files; those that hold each other come to an end
};
