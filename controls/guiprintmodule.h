// controls/guiprintmodule.h: the small interface between the component and the library that knows printers
// (print/qtprint.cpp), which is loaded when somebody prints: a program that does not pays nothing for it, and needs no
// package for it.
#pragma once

#define TARN_PRINT_VERSION 1

class QPagedPaintDevice;
class QString;
class QWidget;

/// What the user wants printed on.
struct TarnPrintout
{
    QPagedPaintDevice* device = nullptr; ///< with the chosen paper; its origin is the paper's corner. Not owned
    int first = 0;                       ///< the first sheet wanted, from 1; 0 for all
    int last = 0;
};

/// Filled in by the library. Everything on the GUI thread.
struct TarnPrintModule
{
    int version; ///< TARN_PRINT_VERSION
    /// Shows the desktop's dialog over a window (null: none) and returns at once. `answered` is called once, with null
    /// when the user has cancelled or the window has gone; what it is given lives until it returns.
    void (*ask)(QWidget* over, QString const& title, void* data,
                void (*answered)(void* data, TarnPrintout const* printout));
};

/// The type and the name of the one function that the library exports.
using TarnPrintEntry = TarnPrintModule const* (*)();
inline constexpr char kTarnPrintEntry[] = "tarnPrintModule";
