// page/guirareread.h: reads the attributes that any element may have and very few have (guirareattributes.h).
#pragma once

class guiHtml;
class mlSection;

/// Reads those that the element has; if it has any, they take the place of all that the node had.
void guiPullRareAttributes(guiHtml* node, mlSection* section);
