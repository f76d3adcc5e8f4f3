// controls/guipagelistener.cpp: see guipagelistener.h.
#include "controls/guipagelistener.h"

#include "foundation/vela-threadrole.h"

namespace {

class deafListener : public guiPageListener
{
public:
    void onNewContent(guiHtml*) override {}
    void onLinkFocus(guiLinkPlace const&) override {}
    void onControlFocus(guiHtml*) override {}
    void onWidget(guiHtml*) override {}
    void onUnbound(guiHtml*) override {}
};

guiPageListener* theListener TARN_GUARDED_BY(velaGuiRole) = nullptr;

} // namespace

guiPageListener& guiCurrentPageListener()
{
    assertOnGuiThread();
    static deafListener nobody;
    return theListener ? *theListener : nobody;
}

void guiSetPageListener(guiPageListener* listener)
{
    assertOnGuiThread();
    theListener = listener;
}
