# shellcheck shell=bash
# ./tarn soak: somebody who cannot sit still uses the example applications through the Node.js host, and what the process holds is
# watched.

# soak_for MINUTES: runs on a virtual display of its own; the samples and a picture of them are left in build/soak.
soak_for() {
    local code
    on_virtual_display node "$root/tests/soak/soak.js" "$1" "$root/build/soak" "$root"/examples/*/app.js
    code=$?
    "$root/tests/soak/graph.sh" "$root/build/soak/samples.csv" "$root/build/soak/memory.png" && note "$root/build/soak/memory.png"
    return "$code"
}
