// host/node/nodenumbers.h: reads arrays of numbers as a whole: a drawing may have tens of thousands of points.
#pragma once

#include <napi.h>

#include <vector>

/// Stores the numbers of an array, those of arrays inside it in their place, or of a typed array. False when `value` is
/// neither, or holds something else. Script thread.
bool nodeReadNumbers(Napi::Value value, std::vector<double>& numbers);
