'use strict';
// The signatures of all methods that the component has, by class and by kind of control. Several of one name are alternatives.

const { parseSignature } = require('./arguments.js');

const ofElements = [
    'loadBackground(path: path)', 'loadFile(path: path)', 'setText(text: markup)', 'setCaption(text: string)', 'play(loop?: switch)',
    'enable(enabled?: switch)', 'disable()', 'isEnabled()', 'setSizePolicy(policy: string)', 'getSizePolicy()',
];

const ofClasses = {
    GuiWindow: [
        'onLoad(pattern: string, filter?: function|object)', 'from(page: markup)', 'open(modal?: boolean)', 'show()', 'showAsync()',
        'close(session?: object)', 'isOpen()', 'popup(name: string)', 'popup(name: string, x: number, y: number)', 'isValid()', 'load(path: path)', 'loadFile(path: path)', 'setText(markup: markup)',
        'loadBackground(path: path)', 'setReturnValue(value: any)', 'setMinimumSize(width: number, height: number)',
        'setMaximumSize(width: number, height: number)', 'setDefaultSize(width: number, height: number)',
        'setResizable(resizable?: switch)', 'useSystemFont(use?: switch)', 'setTitle(title: string)', 'getTitle()', 'setIcon(file: path)',
        'setFocus(control: string)', 'getFocus()', 'setEnterControl(control: string)', 'getEnterControl()',
        'setEscapeControl(control: string)', 'getEscapeControl()', 'setSizePolicy(policy: string)', 'getSizePolicy()',
        'control(name: string)', 'find(text: string, options?: object)', 'savePdf(path: path, options?: object)', 'print()',
    ],
    GuiControl: ofElements,
    GuiImage: ['loadFile(path: path)'],
    GuiToolkit: [
        'fill(color: string, rect?: rect)', 'drawLine(color: string, x1: number, y1: number, x2: number, y2: number, width: number)',
        'drawImage(image: image, x: number, y: number)',
        'drawImage(image: image, x: number, y: number, width: number, height: number)',
        'drawImage(image: image, x: number, y: number, width: number, height: number, offsetX: number, offsetY: number)',
        'drawText(text: string, rect?: rect, align?: number)',
        'drawEllipse(color: string, x: number, y: number, width: number, height: number, lineWidth?: number)',
        'drawPolygon(color: string, points: points, lineWidth?: number)', 'drawPolyline(color: string, points: points, lineWidth?: number)',
        'measureText(text: string, width?: number)', 'repaint(rect?: rect)',
        'repaint(left: number, top: number, width: number, height: number)',
    ],
};

/** Methods of single objects, by the kind that the object is of: it has a method that no other kind has. */
const ofKinds = {
    TextControl: { mark: 'select', methods: ['select(start: number, end?: number)'] },
    ButtonControl: { mark: 'isChecked', methods: ['isChecked()', 'check(on?: switch)', 'uncheck()'] },
    MenuControl: {
        mark: 'activateItem',
        methods: ['isItemChecked(name: string)', 'checkItem(name: string, on?: switch)', 'uncheckItem(name: string)',
            'isItemEnabled(name: string)', 'enableItem(name: string, on?: switch)', 'disableItem(name: string)',
            'setItemText(name: string, text: string)', 'setItemKey(name: string, key: string)', 'setItemIcon(name: string, file: string)',
            'addItem(name: string, text?: string|null, parent?: string|null, type?: string|null)', 'removeItem(name: string)',
            'activateItem(name: string)'],
    },
    FlexListControl: {
        mark: 'scrollToTop',
        methods: ['scrollToTop()', 'isItemChecked(value: string)', 'checkItem(value: string, on?: switch)', 'uncheckItem(value: string)',
            'isItemSelected(value: string)', 'selectItem(value: string, on?: switch)', 'unselectItem(value: string)',
            'isItemEnabled(value: string)', 'enableItem(value: string, on?: switch)', 'disableItem(value: string)',
            'isItemExpanded(value: string)', 'expandItem(value: string, on?: switch)', 'collapseItem(value: string)',
            'addItem(value: string, text?: string|null, parent?: string|null, type?: string|number)', 'removeItem(value: string)', 'clear()', 'setRows(rows: any)', 'rows()',
            'setSource(count: number, source: function)',
            'setHeaderEnabled(enabled: switch)', 'setColumnWidth(column: number, width: number)',
            'setColumnText(column: number, text: string)', 'setItemText(value: string, column: number, text: string)'],
    },
    ListControl: {
        mark: 'addItem',
        methods: ['addItem(value: string, text?: string)', 'removeItem(value: string)', 'selectItem(value: string, on?: switch)',
            'isItemSelected(value: string)', 'clear()', 'setItems(items: any)', 'items()'],
    },
    CustomElement: { mark: 'setSize', methods: ['setSize(width: number|string, height?: number|string)'] },
};

function parseAll(owner, texts) {
    const byName = new Map();
    for (const text of texts) {
        const name = text.slice(0, text.indexOf('('));
        byName.set(name, [...byName.get(name) ?? [], parseSignature(`${owner}.${text}`)]);
    }
    return byName;
}

const classes = new Map(Object.entries(ofClasses).map(([name, texts]) => [name, parseAll(name, texts)]));
const kinds = Object.entries(ofKinds).map(([name, { mark, methods }]) => ({ mark, byName: parseAll(name, methods) }));
const elements = parseAll('CustomElement', ofElements);

/** The signatures of a method of one of the package's classes; undefined when it takes what it is given. */
function signaturesOfClass(className, method) {
    return classes.get(className)?.get(method);
}

/** The same for a method that the component has added to one object, undefined when it is not known. */
function signaturesOfObject(object, method) {
    return kinds.find(({ mark }) => Object.hasOwn(object, mark))?.byName.get(method) ?? elements.get(method);
}

module.exports = { signaturesOfClass, signaturesOfObject };
