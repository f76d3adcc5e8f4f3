# shellcheck shell=bash disable=SC2154 # root and step_log are of the script that reads this one
# ./tarn pack: the npm package as it is shipped, and the test of it.

largest_package=3000000 # bytes

# Leaves the path of the package at the end of the step's log.
pack() {
    "$root/scripts/pack.sh" "$root/build/release/host/node/lib" "$root/build"
}

# pack_step: makes the package, and sets `package` to its path and `package_size` to its bytes.
pack_step() {
    step 'packing' pack
    package=$(tail -n 1 -- "$step_log")
    package_size=$(stat -c %s -- "$package") || die "there is no package; the log is in $step_log"
    [ "$package_size" -lt "$largest_package" ] || die "$package has $package_size bytes, more than $largest_package"
}

# What is shipped is optimised further than what is tested, and the compiler then gives other warnings.
test_shipped() {
    prepare_preset release tarn tarn_native_host tarn_node tarn_sound tarn_print
    pack_step
    count_step 'testing the package' env TARN_TARBALL="$package" \
        "$root/tests/e2e/with-display.sh" node --test "$root/tests/node/installed.display.test.js"
}
