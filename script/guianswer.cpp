// script/guianswer.cpp: see guianswer.h.
#include "script/guianswer.h"

#include "controls/guiscriptvalue.h"
#include "runtime/gui.h"

namespace {

void forgetAnswer(ScriptValue&, void*) {}

} // namespace

void guiGiveAnswer(std::shared_ptr<ScriptObject> const& done, std::vector<sstring> const& answers)
{
    HostPlatform* const platform = pGUI->getPlatform();
    ScriptEngine* const engine = done->getEngine();
    guiOwnedArgs const args(platform->createArgs(engine));
    guiOwnedValue const value(platform->createValue(engine));
    for (sstring const& answer : answers) {
        value->setString(answer);
        args->append(value.get());
    }
    done->callMethodAsync(done.get(), sstring(), args.get(), forgetAnswer, nullptr);
}
