// page/guieventprefix.h: what tells a link that calls a handler from one that leads to a file.
#pragma once

/// What begins every link that calls a handler.
inline constexpr char kEventPrefix[] = "event://";
