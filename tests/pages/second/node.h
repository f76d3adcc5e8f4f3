// tests/pages/second/node.h: the tree that a page becomes, with every number that its dump shows.
#pragma once

#include <QString>
#include <QStringList>
#include <memory>
#include <vector>

namespace second {

enum unit
{
    unbound,
    pixels,
    percent
};

enum marker
{
    paragraph = 1,
    lineBreak = 2,
    alignLeft = 3
};

/// What a leaf is, for its measures.
enum leaf
{
    noLeaf,
    textLeaf,
    pushLeaf, ///< `label`
    markLeaf, ///< check box or radio button
    editLeaf, ///< `columns` and `rows`
    listLeaf, ///< `rows` and `labels`
    flexLeaf, ///< `rows`, `labels` (the longest text of each column) and `hasHeader`
    menuLeaf,
    barLeaf,     ///< `labels`
    dividerLeaf, ///< between panes
    summaryLeaf, ///< `label`
    hiddenLeaf,
    pictureLeaf ///< `columns` and `rows` are its pixels
};

struct sizes
{
    unit unitX = unbound, unitY = unbound;
    int x = 0, y = 0, minX = 0, minY = 0;
};

struct node;

/// What a node does with its children besides laying them out.
enum container
{
    noContainer,
    tabsContainer,
    sheetContainer,  ///< of tabs
    foldedContainer, ///< of details
    splitContainer
};

/// A node, or a marker.
struct entry
{
    std::unique_ptr<node> child;
    int mark = 0;
};

struct node
{
    int type = 0;
    leaf kind = noLeaf;
    QString name, text, face, caption;
    node* parent = nullptr;
    std::vector<entry> children;
    sizes fixed, dynamic;
    bool expandChildren = false, expandWidth = false, expandHeight = false;
    int cx = 0, cy = 0;
    int left = 0, top = 0, width = 0, height = 0;
    int border = 0, space = 0, divide = 0;
    int alignX = 0, alignY = 1;
    int scrollMode = 1;
    bool systemFont = false;
    bool barX = false, barY = false;
    int rangeX = 0, rangeY = 0;
    int captionHeight = 0;
    int menuHeight = 0; ///< of a root with a menu bar

    QString label;
    QStringList labels;
    int columns = 0, rows = 0;
    bool hasHeader = false;
    bool isMissing = false; ///< the picture's file is

    /// Of a frameset: its lists and the frames placed so far.
    std::vector<std::pair<unit, int>> columnList, rowList;
    unsigned frames = 0;

    container role = noContainer;
    bool isAway = false;    ///< of a sheet
    int shownMinY = 0;      ///< of a sheet: its least height when it is shown
    bool isStacked = false; ///< of a splitter; `columnList` is what its panes ask for

    int frame() const { return 2 * (border + space); }
};

} // namespace second
