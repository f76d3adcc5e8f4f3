#!/bin/sh
# sound-library.sh COMPONENT LIBRARY: fails when the component needs the toolkit's multimedia library, which only the library
# for sound may, or when that exports more than its one function.
if readelf -d "$1" | grep NEEDED | grep -i -e multimedia -e sound; then
    echo "$1 needs it"
    exit 1
fi
exported=$(nm -D --defined-only "$2" | awk '{print $3}' | xargs)
if [ "$exported" != tarnSoundModule ]; then
    echo "exported: $exported"
    exit 1
fi
