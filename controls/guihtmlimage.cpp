// controls/guihtmlimage.cpp: see guihtmlimage.h.
#include "controls/guihtmlimage.h"

#include "controls/guiimagemap.h"

guiHtmlImage::guiHtmlImage(guiHtml* parent) : guiHtml(parent) {}

guiHtmlImage::~guiHtmlImage() = default;

guiHtml& guiHtmlImage::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (other.getType() != kTypeImage)
        return *this;
    auto& image = static_cast<guiHtmlImage&>(other);
    m_source = image.m_source;
    m_link = image.m_link;
    m_mapName = image.m_mapName;
    m_playback = image.m_playback;
    m_map = image.m_map ? image.m_map->Clone() : nullptr;
    return *this;
}

guiHtml* guiHtmlImage::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlImage::setImageMap(std::unique_ptr<guiImageMap> map) { m_map = std::move(map); }

sstring guiHtmlImage::getMappedLink(int x, int y) const { return m_map ? m_map->hitTest(x, y) : m_link; }
