// page/guionpaper.h: whether pages are laid out and painted for paper at the moment, not for their windows.
#pragma once

/// While one exists, layouts move no widgets of windows and make none, and what belongs to the screen alone, such as
/// marks and the pointer's traces, is not painted. No events are processed and no script runs in its lifetime. GUI
/// thread.
class guiOnPaper
{
public:
    guiOnPaper() { ++s_depth; }
    ~guiOnPaper() { --s_depth; }
    guiOnPaper(guiOnPaper const&) = delete;
    guiOnPaper& operator=(guiOnPaper const&) = delete;

    static bool isActive() { return s_depth != 0; }

private:
    static inline int s_depth = 0;
};
