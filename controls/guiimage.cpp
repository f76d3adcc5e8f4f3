// controls/guiimage.cpp: see guiimage.h. The picture belongs to the GUI thread, its record to the script thread.
#include "controls/guiimage.h"

#include "controls/guicontrolmethod.h"
#include "controls/guiimagec.h"
#include "foundation/vela-comtypes.h"
#include "script/guiwindow.h"

#include <QPixmap>
#include <memory>

namespace {

/// The private record of a GuiImage object. Made and destroyed with it.
struct guiImageData
{
    std::uint32_t tag;
    std::unique_ptr<QPixmap> image; // null until one was loaded
};

guiImageData* guiImage_getData(ScriptPrivate* data)
{
    if (!data)
        return nullptr;
    try {
        auto* record = static_cast<guiImageData*>(data->getData(kPrivateKey));
        return record && record->tag == kRecordTag ? record : nullptr;
    } catch (...) {
        return nullptr; // a host's slot that fails holds no record
    }
}

void setSizeProperty(ScriptObject* image, char const* name, int pixels)
{
    ScriptValue* value = guiComponent::NewScriptValue();
    value->setInt(pixels);
    image->setProperty(name, value);
    guiComponent::DeleteScriptValue(value);
}

void guiImage_setSizeProps(ScriptObject* image, QPixmap const& picture)
{
    setSizeProperty(image, "width", picture.width());
    setSizeProperty(image, "height", picture.height());
}

/// A failed load leaves the picture of before.
void guiImage_loadFile_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setBool(0);
    guiImageData* record = guiImage_getData(data);
    if (!record || args.count() != 1 || !guiIsString(args, 0))
        return;
    sstring path = guiTextOf(args, 0);
    pGUI->getLoadFile()->resolvePath(self, path);
    auto picture = std::make_unique<QPixmap>();
    if (!guiLoadImage(self, path, *picture))
        return;
    record->image = std::move(picture);
    guiImage_setSizeProps(self, *record->image);
    result.setBool(1);
}

constexpr ScriptMethod guiImage_loadFile_script = guiControlHandOver<guiImage_loadFile_qt>;

void guiImage_onCreate(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    data->setData(kPrivateKey, new guiImageData{kRecordTag, nullptr});
    result.setBool(1);
}

void forgetPicture_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    guiImage_getData(data)->image.reset();
}

void guiImage_onDestroy(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                        ScriptValue& result)
{
    result.setBool(1);
    guiImageData* record = guiImage_getData(data);
    if (!record)
        return;
    if (record->image)
        pGUI->getThread()->callFunction(forgetPicture_qt, manager, data, self, args, result);
    data->setData(kPrivateKey, nullptr);
    delete record;
}

} // namespace

int guiImage_onConfigure(ScriptClass& scriptClass)
{
    scriptClass.setCreateHandler(guiImage_onCreate);
    scriptClass.setDestroyHandler(guiImage_onDestroy);
    scriptClass.addMethod("loadFile", guiImage_loadFile_script);
    return 1;
}

QPixmap const* guiImage_getPixmap(ScriptObject* image)
{
    guiImageData* record = image ? guiImage_getData(image->getPrivate()) : nullptr;
    return record ? record->image.get() : nullptr;
}
