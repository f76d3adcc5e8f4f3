// controls/guiimage.cpp: see guiimage.h. The picture belongs to the GUI thread; the record that holds it is made and
// destroyed with the script object, on the thread on which the host does that.
#include "controls/guiimage.h"

#include "controls/guiimagec.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiscriptrecord.h"
#include "controls/guiscriptvalue.h"

#include <cassert>
#include <memory>

namespace {

/// The private record of a GuiImage object.
struct guiImageData
{
    std::uint32_t tag = kRecordTag;
    guiPictureRef image; // null until one was loaded
};

guiImageData* guiImage_getData(ScriptPrivate* data) { return guiRecordIn<guiImageData>(data); }

void guiImage_setSizeProps(ScriptObject* image, QPixmap const& picture)
{
    guiSetNumber(image, "width", picture.width());
    guiSetNumber(image, "height", picture.height());
}

/// A load that fails leaves the old picture.
void guiImage_loadFile_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setBool(0);
    guiImageData* record = guiImage_getData(data);
    if (!record || !guiIsOneString(args))
        return;
    sstring const path = guiControlHost::current().resolvePath(self, guiTextOf(args, 0));
    guiPictureRef picture = guiLoadPicture(self, path);
    if (!picture)
        return;
    record->image = std::move(picture);
    guiImage_setSizeProps(self, record->image->image);
    result.setBool(1);
}

constexpr ScriptMethod guiImage_loadFile_script = guiCallOnGuiThread<guiImage_loadFile_qt>;

void guiImage_onCreate(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    data->setData(kPrivateKey, std::make_unique<guiImageData>().release()); // guiImage_onDestroy() takes it back
    result.setBool(1);
}

void forgetPicture_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    assertOnGuiThread();
    guiImageData* record = guiImage_getData(data);
    assert(record && record->image);
    record->image.reset();
}

void guiImage_onDestroy(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                        ScriptValue& result)
{
    result.setBool(1);
    std::unique_ptr<guiImageData> const record(guiImage_getData(data));
    if (!record)
        return;
    if (record->image)
        guiControlHost::current().callFunction(forgetPicture_qt, manager, data, self, args, result);
    assert(!record->image);
    data->setData(kPrivateKey, nullptr);
    record->tag = 0; // whoever still has the record does not take it for one
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
    assertOnGuiThread();
    guiImageData* record = image ? guiImage_getData(image->getPrivate()) : nullptr;
    return record && record->image ? &record->image->image : nullptr;
}
