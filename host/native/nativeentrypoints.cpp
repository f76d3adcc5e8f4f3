// host/native/nativeentrypoints.cpp: a file of its own, so that a program that brings its own entry points need not
// link the component.
#include "host/native/nativeentrypoints.h"

NativeEntryPoints NativeEntryPoints::linked() { return {Init, GetCompNames, ConfigCompClass, Shutdown}; }
