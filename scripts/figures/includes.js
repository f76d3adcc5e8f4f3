'use strict';
// scripts/figures/includes.js: which source includes which, across the layers of the component, and where includes go
// in circles.
//
// A unit is a header with its source and with the sources that have no header of their own and whose names go on where
// the header's ends: guihtml.h, guihtml.cpp, guihtml-paint.cpp.

/** The layers, from the ground up: each may include from itself and from those before it. */
const layers = ['foundation', 'page', 'controls', 'runtime', 'script'];

/** What every layer may include although it lies in a higher one: the interfaces that a host implements. */
const ground = new Set(['script/hostinterface.h']);

const folderOf = (name) => name.slice(0, name.lastIndexOf('/'));
/** The hosts stand on top of all. */
const heightOf = (name) => (name.startsWith('host/') ? layers.length : layers.indexOf(folderOf(name)));

/** All includes of sources by sources: {from, to, line}. Names are looked up beside the source, then from the root. */
function includesAmong(sources, others = []) {
    const known = new Set([...sources, ...others].map((source) => source.name));
    return sources.flatMap((source) => source.text.split('\n').flatMap((text, index) => {
        const name = /^\s*#\s*include\s*"([^"]+)"/.exec(text)?.[1];
        const to = [`${folderOf(source.name)}/${name}`, name].find((candidate) => known.has(candidate));
        return to ? [{ from: source.name, to, line: index + 1 }] : [];
    }));
}

function includesUp(includes) {
    return includes.filter(({ from, to }) => heightOf(to) > heightOf(from) && !ground.has(to));
}

/** Tells the unit of a file, among all the files there are. */
function unitsAmong(sources) {
    const names = sources.map((source) => source.name);
    const headers = names.filter((name) => name.endsWith('.h')).map((name) => name.slice(0, -2));
    headers.sort((a, b) => b.length - a.length);
    const withoutEnding = (name) => name.replace(/\.\w+$/, '');
    const units = new Map(names.map((name) => (
        [name, headers.find((header) => name.startsWith(header)) ?? withoutEnding(name)])));
    headers.forEach((header) => units.set(`${header}.h`, header));
    return (name) => units.get(name);
}

/** unit -> units that it includes. The ground is no unit: it is there for all. Nor are the hosts. */
function graphOf(includes, unitOf) {
    const graph = new Map();
    const counts = ({ from, to }) => !ground.has(from) && !ground.has(to) && unitOf(to);
    for (const { from, to } of includes.filter(counts)) {
        const [user, used] = [unitOf(from), unitOf(to)];
        graph.set(user, (graph.get(user) ?? new Set()).add(used));
        graph.set(used, graph.get(used) ?? new Set());
    }
    return graph;
}

/** The units of each circle, the largest first: Tarjan's strongly connected components of more than one unit. */
function cyclesOf(includes, unitOf) {
    const graph = graphOf(includes, unitOf);
    const cycles = [];
    const seen = new Map(); // unit -> {number, lowest, isOpen}
    const path = [];
    function visit(unit) {
        const state = { number: seen.size, lowest: seen.size, isOpen: true };
        seen.set(unit, state);
        path.push(unit);
        for (const used of graph.get(unit)) {
            const other = seen.get(used) ?? visit(used);
            state.lowest = other.isOpen ? Math.min(state.lowest, other.lowest) : state.lowest;
        }
        if (state.lowest === state.number) {
            const cycle = path.splice(path.indexOf(unit));
            cycle.forEach((member) => { seen.get(member).isOpen = false; });
            cycles.push(cycle.sort());
        }
        return state;
    }
    [...graph.keys()].forEach((unit) => seen.has(unit) || visit(unit));
    return cycles.filter((cycle) => cycle.length > 1).sort((a, b) => b.length - a.length);
}

const insideFolders = (includes) => includes.filter(({ from, to }) => folderOf(from) === folderOf(to));

const foldersIn = (cycle) => [...new Set(cycle.map(folderOf))].sort();

module.exports = {
    layers, ground, includesAmong, includesUp, insideFolders, unitsAmong, cyclesOf, foldersIn, folderOf,
};
