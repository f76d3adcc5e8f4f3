#!/usr/bin/env bash
# pack.sh LIBRARIES FOLDER: makes the npm package of the Node.js host, tarn-gui-VERSION.tgz, in a folder, with the addon and
# the libraries of another folder, stripped. Prints its path. The package needs no install script and fetches nothing.
set -eu

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd)
libraries=$(cd -- "$1" && pwd)
mkdir -p -- "$2"
out=$(cd -- "$2" && pwd)
stage=$(mktemp -d)
trap 'rm -rf -- "$stage"' EXIT

# A module of its own costs an interpreter about 0.3 ms, a third of a window's start for all of them: they are shipped as one,
# in the folder where they lie here, since some of them know their place.
cd -- "$root/host/node"
cp -R -- index.mjs index.d.ts index.d.mts vfs man templates "$stage"
# The test driver, the inspector and live reload stay as they are: hardly a program loads them, and the driver's hook is a file that Node.js
# is told by name.
cp -R -- test.js test.mjs test.d.ts test.d.mts driver inspector live "$stage"
node_modules/.bin/esbuild index.js --bundle --platform=node --target=node18 --log-level=warning '--external:../inspector/*' '--external:../live/*' \
    "--outfile=$stage/js/tarn.js"
node_modules/.bin/esbuild bin/tarn-gui.js --bundle --platform=node --target=node18 --log-level=warning --external:../index.js \
    --external:../package.json "--outfile=$stage/bin/tarn-gui.js"
chmod 755 "$stage/bin/tarn-gui.js"
printf "'use strict';\nmodule.exports = require('./js/tarn.js');\n" >"$stage/index.js"
cp -- "$root/LICENSE" "$stage"
cp -- "$root/docs/using.md" "$stage/README.md"
mkdir -- "$stage/lib"
for name in tarn.node libtarn.so libtarn-sound.so libtarn-print.so; do
    strip --strip-unneeded -o "$stage/lib/$name" "$(readlink -f -- "$libraries/$name")"
done

# npm refuses the package in one line where its binaries do not fit. The working copy's own entries stay here.
node - "$stage/package.json" <<'END'
const { private: _private, devDependencies: _tools, ...shipped } = require(`${process.cwd()}/package.json`);
const text = JSON.stringify({ ...shipped, cpu: [process.arch], libc: ['glibc'] }, null, 2);
require('node:fs').writeFileSync(process.argv[2], `${text}\n`);
END
name=$(cd -- "$stage" && npm pack --silent --no-update-notifier --pack-destination "$out" 2>/dev/null)
printf '%s/%s\n' "$out" "$name"
