// script/guianswer.h: calls a function of script with the answer to a question.
#pragma once

#include "foundation/vela-string.h"

#include <memory>
#include <vector>

class ScriptObject;

/// Calls script's function with the answers, and lets go of it. GUI thread; returns at once.
void guiGiveAnswer(std::shared_ptr<ScriptObject> const& done, std::vector<sstring> const& answers);
