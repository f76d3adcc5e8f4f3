#!/usr/bin/env bash
# figures.sh [FOLDER]: one table of figures about a checkout, this one unless told: how its sources hang together, how
# long its functions are, what its tests link. Only looks, and needs nothing but Node.js and the sources.
set -u

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd) || exit 1
exec node "$here/figures/figures.js" "${1:-$here/..}"
