#!/bin/sh
# Fails unless the library exports exactly the four entry points.
wanted="ConfigCompClass GetCompNames Init Shutdown"
found=$(nm -D --defined-only "$1" | awk '{print $3}' | sort | xargs)
if [ "$found" != "$wanted" ]; then
    echo "exported: $found"
    echo "wanted:   $wanted"
    exit 1
fi
