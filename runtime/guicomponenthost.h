// runtime/guicomponenthost.h: the component as the host of pages and controls: it answers what they ask of the files,
// the content filters, the script handlers behind links, the GUI thread and the list of windows. What only the script
// classes can answer is left to script/guiscripthost.h.
#pragma once

#include "controls/guicontrolhost.h"

/// Answers with the help of the one component (`pGUI`), and neutrally while there is none.
class guiComponentHost : public guiControlHost
{
public:
    int callHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring& reply) override;
    std::vector<sstring> methodNames(ScriptObject* target) override;
    int callLinkHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring const& frame,
                        sstring& reply) override;
    int openOutside(guiHtml* node, sstring const& address) override;
    ScriptObject* buildCustomObject(guiHtml* node) override;
    void unbindObject(ScriptObject* object, guiHtml* node) override;
    void postTrigger(guiHtml* node) override;

    sstring resolvePath(ScriptObject* owner, sstring const& path) override;
    int readText(ScriptObject* owner, sstring const& path, sstring& text) override;
    int filterText(guiPageRoot* root, sstring& name, sstring& text) override;
    guiPictureRef readImage(ScriptObject* owner, sstring const& path, QSize shown) override;

    bool isGuiThread() const override;
    bool isScriptThread() const override;
    void callFunction(ScriptMethod method, LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                      ScriptArgs& args, ScriptValue& result) override;
    void postUpdate(guiHtml* node) override;
    void postToGui(std::function<void()> const& work) override;
    void postToScript(guiHtml* node, std::function<void()> const& work, std::function<void()> const& done) override;
    void disableMM() override;
    void enableMM() override;
    bool isInputBlocked() const override;
    void wakeWaiters() override;

    void noteChoice(guiHtml* control) override;

    void onClose(guiWidget* window, guiHtml* root) override;
    void onVisible(guiWidget* window, bool isVisible) override;
    void setCurrentWindow(guiWidget* window) override;

    int callElement(guiHtmlCustom* node, ScriptObject* instance, char const* event) override;
    void callHandlerHere(ScriptObject* object, char const* name) override;
    void bindObject(ScriptObject* object, guiHtml* node) override;
    ScriptValue* newValue() override;
    void deleteValue(ScriptValue* value) override;
    HostPlatform* platform() override;
    HostFormProp* formProp() override;
    HostLoadFile* loadFile() override;

protected:
    /// The user has used the control of this name, so it becomes the session's current control; "" when it has none,
    /// then there is no current control. `window` is the private slot of the window's script object. GUI thread.
    virtual void chooseControl(ScriptPrivate* window, sstring const& name) = 0;
};
