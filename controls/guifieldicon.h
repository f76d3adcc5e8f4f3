// controls/guifieldicon.h: the small drawings on the buttons inside fields, in the text colour of the palette and sharp
// at every scale.
#pragma once

#include <QIcon>

enum class guiFieldIcon
{
    kEye,       ///< show a password
    kClosedEye, ///< hide it again
    kFolder,    ///< choose a file
    kCalendar,  ///< choose a day
};

/// GUI thread.
QIcon guiIconOf(guiFieldIcon drawing);
