# shellcheck shell=bash disable=SC2154 # root is of the script that reads this one
# ./tarn soak: the example applications are used at random through the Node.js host, while the memory, handles and
# threads of the process are watched.

# soak_for MINUTES: runs on a virtual display of its own; the samples and a picture of them are left in build/soak.
soak_for() {
    local code out=$root/build/soak
    on_virtual_display node "$root/tests/soak/soak.js" "$1" "$out" "$root"/examples/*/app.js
    code=$?
    "$root/tests/soak/graph.sh" "$out/samples.csv" "$out/memory.png" && note "$out/memory.png"
    return "$code"
}
