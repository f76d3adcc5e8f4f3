#!/bin/sh
# with-node.sh NODE [ARGUMENT...]: runs Node.js, or in its place the one that TARN_TEST_NODE names.
node=${TARN_TEST_NODE:-$1}
shift
exec "$node" "$@"
