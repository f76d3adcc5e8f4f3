// bench/pageprograms.h: starts the programs of bench/pageengine.h, one at a time, and reads what they print.
#pragma once

#include <map>
#include <string>
#include <vector>

/// The figures of one run by name: seconds, bytes, counts.
using PageFigures = std::map<std::string, double>;

/// The engines whose programs were built, ours ("tarn") first. Prints which peers are missing.
std::vector<std::string> findPageEngines(std::vector<std::string> const& peers);

/// Runs the engine's program. Throws std::runtime_error if it fails.
PageFigures runPageEngine(std::string const& engine, std::string const& arguments);
