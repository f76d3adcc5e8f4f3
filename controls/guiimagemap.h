// controls/guiimagemap.h: areas of a picture that are links: the `map` element.
#pragma once

#include "foundation/vela-string.h"

#include <QPainterPath>
#include <QPolygon>
#include <QRect>
#include <memory>
#include <vector>

/// One `area`: a shape in the picture's own pixels and a link.
class guiImageMapRegion
{
public:
    /// A rectangle; nothing is in it unless it has a width and a height.
    guiImageMapRegion(sstring const& link, int x, int y, int width, int height);
    /// A circle around (cx, cy).
    guiImageMapRegion(sstring const& link, int cx, int cy, int radius);
    /// A polygon of `count` points, filled by the odd-even rule.
    guiImageMapRegion(sstring const& link, int const* xs, int const* ys, int count);

    /// The link when the point lies in the shape, else "".
    sstring hitTest(int x, int y) const;
    /// The link, "" for an area that only covers others.
    sstring const& getLink() const { return m_link; }
    /// What the page calls the area.
    sstring const& getText() const { return m_text; }
    void setText(sstring const& text) { m_text = text; }
    /// The shape, in the picture's own pixels.
    QPainterPath outline() const;

private:
    enum shapeKind : unsigned char
    {
        kRectangle,
        kCircle,
        kPolygon,
    };

    bool contains(int x, int y) const;

    shapeKind m_kind = kRectangle;
    QPolygon m_points; // of a polygon
    QRect m_box;       // around the shape
    sstring m_link;
    sstring m_text;
};

/// The areas of one picture. A plain value, used on one thread at a time.
class guiImageMap
{
public:
    explicit guiImageMap(sstring const& name) : m_name(name) {}

    sstring getName() const { return m_name; }
    /// Stores a copy.
    void addRegion(guiImageMapRegion const& region) { m_regions.push_back(region); }
    /// What the region that was added last is called; there is one.
    void nameLast(sstring const& text) { m_regions.back().setText(text); }
    unsigned getRegionCount() const { return static_cast<unsigned>(m_regions.size()); }
    std::unique_ptr<guiImageMap> Clone() const { return std::make_unique<guiImageMap>(*this); }
    guiImageMapRegion const& getRegion(unsigned i) const { return m_regions[i]; }
    /// The first region at a point, in the order of adding, that has a link; getRegionCount() for none.
    unsigned findRegion(int x, int y) const;
    /// The link at a point, "" for none.
    sstring hitTest(int x, int y) const;

private:
    sstring m_name;
    std::vector<guiImageMapRegion> m_regions;
};
