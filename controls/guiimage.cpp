// controls/guiimage.cpp: see guiimage.h. The picture belongs to the GUI thread, its record to the script thread.
#include "controls/guiimage.h"

#include "controls/guiimagec.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiscriptrecord.h"

#include <QPixmap>
#include <memory>

namespace {

/// The private record of a GuiImage object. Made and destroyed with it.
struct guiImageData
{
    std::uint32_t tag;
    std::unique_ptr<QPixmap> image; // null until one was loaded
};

guiImageData* guiImage_getData(ScriptPrivate* data) { return guiRecordIn<guiImageData>(data); }

void setSizeProperty(ScriptObject* image, char const* name, int pixels)
{
    guiControlHost& host = guiControlHost::current();
    ScriptValue* value = host.newValue();
    value->setInt(pixels);
    image->setProperty(name, value);
    host.deleteValue(value);
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
    if (!record || !guiIsOneString(args))
        return;
    sstring const path = guiControlHost::current().resolvePath(self, guiTextOf(args, 0));
    auto picture = std::make_unique<QPixmap>();
    if (!guiLoadImage(self, path, *picture))
        return;
    record->image = std::move(picture);
    guiImage_setSizeProps(self, *record->image);
    result.setBool(1);
}

constexpr ScriptMethod guiImage_loadFile_script = guiCallOnGuiThread<guiImage_loadFile_qt>;

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
        guiControlHost::current().callFunction(forgetPicture_qt, manager, data, self, args, result);
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
