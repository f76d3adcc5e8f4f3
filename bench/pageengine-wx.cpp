// bench/pageengine-wx.cpp: wxHTML as a peer.

#include "bench/pageengine.h"

#include <clocale>
#include <memory>

#include <wx/app.h>
#include <wx/bitmap.h>
#include <wx/dcmemory.h>
#include <wx/html/htmlcell.h>
#include <wx/html/winpars.h>

namespace {

class WxEngine : public PageEngine
{
public:
    WxEngine() : m_bitmap(kPageWidth, kPageHeight), m_dc(m_bitmap)
    {
        m_parser.SetDC(&m_dc);
        m_parser.SetStandardFonts(kPageFontPixels * 72 / 96, kPageFont, "DejaVu Sans Mono");
    }

    void take(std::string const& page) override { m_text = wxString::FromUTF8(page.data(), page.size()); }
    void load(int width) override
    {
        m_cell.reset(static_cast<wxHtmlContainerCell*>(m_parser.Parse(m_text)));
        m_cell->Layout(width);
    }
    void layOut(int width) override { m_cell->Layout(width); }
    int height() override { return m_cell->GetHeight(); }
    void clear() override { m_cell.reset(); }

private:
    wxString m_text;
    wxBitmap m_bitmap;
    wxMemoryDC m_dc;
    wxHtmlWinParser m_parser;
    std::unique_ptr<wxHtmlContainerCell> m_cell;
};

} // namespace

int main(int argc, char** argv)
{
    wxApp::SetInstance(new wxApp);
    int count = 1; // the toolkit's own arguments
    if (!wxEntryStart(count, argv))
        return 1;
    std::setlocale(LC_NUMERIC, "C");
    int code = 0;
    {
        WxEngine engine;
        code = runPageProgram(argc, argv, engine, nullptr);
    }
    wxEntryCleanup();
    return code;
}
