// What we draw over the page: the frame and handles of the selected object, and signs for what has
// no look of its own. It hangs on an element that is there only while there is something to draw,
// and that is no part of the document.

const kHandles = ['nw', 'n', 'ne', 'e', 'se', 's', 'sw', 'w'];
const kMostSigns = 500;  // on one screen

const kOverlayStyle = `
    div, span { position: fixed; box-sizing: border-box; }
    .frame { border: 1px solid #1a73e8; }
    .handle { width: 8px; height: 8px; background: white; border: 1px solid #1a73e8;
              pointer-events: auto; }
    .sign { font: 9px/11px sans-serif; padding: 0 2px; color: white; background: #5f7d9c;
            border-radius: 2px; opacity: 0.85; white-space: nowrap; }
`;

let canvas = null;

function openCanvas() {
    if (overlayHost !== null && overlayHost.isConnected) return;
    overlayHost = document.createElement('div');
    overlayHost.contentEditable = 'false';
    overlayHost.style.cssText = 'all: initial; position: fixed; left: 0; top: 0; width: 0; ' +
        'height: 0; z-index: 2147483647; pointer-events: none; user-select: none;';
    canvas = overlayHost.attachShadow({mode: 'closed'});
    document.documentElement.append(overlayHost);
}

function closeCanvas() {
    if (overlayHost !== null) overlayHost.remove();
}

// ---- The frame of the selected object

// The edges that a press of the button has taken hold of; null for none.
function edgesOfHandle(event) {
    if (event.target !== overlayHost || control === null) return null;
    const hit = canvas.elementFromPoint(event.clientX, event.clientY);
    return (hit && hit.dataset && hit.dataset.edges) || null;
}

function place(element, left, top, width, height) {
    element.style.left = `${left}px`;
    element.style.top = `${top}px`;
    if (width !== undefined) {
        element.style.width = `${width}px`;
        element.style.height = `${height}px`;
    }
    return element;
}

function piece(name, className) {
    const element = document.createElement(name);
    element.className = className;
    return element;
}

const isResizable = (element) =>
    !isLocked(element) && (kSized.has(upperName(element)) || isPositioned(element));

function handleAt(edges, {left, top, width, height}) {
    const handle = piece('div', 'handle');
    handle.dataset.edges = edges;
    handle.style.cursor = `${edges}-resize`;
    const x = edges.includes('w') ? 0 : edges.includes('e') ? 1 : 0.5;
    const y = edges.includes('n') ? 0 : edges.includes('s') ? 1 : 0.5;
    return place(handle, left + x * width - 4, top + y * height - 4);
}

function frameParts() {
    if (control === null || !control.isConnected) return [];
    const box = drag !== null ? drag.frame : control.getBoundingClientRect();
    const frame =
        place(piece('div', 'frame'), box.left - 1, box.top - 1, box.width + 2, box.height + 2);
    if (!isResizable(control)) return [frame];
    return [frame, ...kHandles.map((edges) => handleAt(edges, box))];
}

// ---- Signs

const kSignsOfElements = {
    BR: '\u21B5',
    SCRIPT: 'script',
    STYLE: 'style'
};

function signOf(node) {
    if (node.nodeType === Node.COMMENT_NODE) {
        return /^\/?OBJECT\b/.test(node.data) ? 'object' : '!';
    }
    const name = upperName(node);
    if (name === 'A')
        return node.hasAttribute('name') || node.id ? `\u2693${node.name || node.id}` : null;
    return kSignsOfElements[name] || null;
}

// Of the nearest sibling on that side that takes room; past other comments, but not far.
function boxesBeside(node, side) {
    const range = document.createRange();
    let sibling = node[side];
    for (let i = 0; i < 8 && sibling !== null && sibling !== overlayHost; ++i) {
        range.selectNode(sibling);
        const boxes = range.getClientRects();
        if (boxes.length > 0) return boxes;
        sibling = sibling[side];
    }
    return [];
}

// Where a node is that takes no room: at what is next to it.
function placeOf(node) {
    const own = node instanceof Element ? node.getClientRects()[0] : undefined;
    if (own) return own;
    for (const [side, isBefore] of [['nextSibling', true], ['previousSibling', false]]) {
        const boxes = boxesBeside(node, side);
        if (boxes.length === 0) continue;
        const box = isBefore ? boxes[0] : boxes[boxes.length - 1];
        return {left: isBefore ? box.left : box.right, top: box.top};
    }
    return node.parentNode instanceof Element ? node.parentNode.getBoundingClientRect() : null;
}

let signedNodes = [];
let signsOfVersion = -1;
function nodesWithSigns() {
    if (signsOfVersion === version) return signedNodes;
    signsOfVersion = version;
    signedNodes = [];
    const walker =
        document.createTreeWalker(document.body, NodeFilter.SHOW_COMMENT | NodeFilter.SHOW_ELEMENT);
    for (let node = walker.nextNode(); node !== null; node = walker.nextNode()) {
        if (signOf(node) !== null) signedNodes.push(node);
    }
    return signedNodes;
}

function signParts() {
    if (!view.details || !isEditing()) return [];
    const parts = [];
    for (const node of nodesWithSigns()) {
        const box = placeOf(node);
        if (box === null || box.top < -20 || box.top > innerHeight) continue;
        const sign = piece('span', 'sign');
        sign.textContent = signOf(node);
        parts.push(place(sign, box.left, box.top));
        if (parts.length === kMostSigns) break;
    }
    return parts;
}

// ---- Drawing

function draw() {
    const parts = document.body === null ? [] : [...frameParts(), ...signParts()];
    if (parts.length === 0) return closeCanvas();
    openCanvas();
    const style = document.createElement('style');
    style.textContent = kOverlayStyle;
    canvas.replaceChildren(style, ...parts);
}

let isDrawDue = false;
function drawSoon() {
    if (isDrawDue || (control === null && drag === null && !view.details && !isCanvasOpen()))
        return;
    isDrawDue = true;
    requestAnimationFrame(() => {
        isDrawDue = false;
        draw();
    });
}
const isCanvasOpen = () => overlayHost !== null && overlayHost.isConnected;

addEventListener('scroll', drawSoon, true);
addEventListener('resize', drawSoon);
document.addEventListener('load', drawSoon, true);

// ---- Style sheets of our own

const kBorderless = 'table:not([border]), table[border="0"]';
const kSheets = {
    borders: `:is(${kBorderless}) { outline: 1px dotted #a0a0a0; }
        :is(${kBorderless}) > * > tr > :is(td, th) { outline: 1px dotted #c0c0c0;
                                                     outline-offset: -1px; }`,
    // What is hidden until it is asked for can be edited all the same.
    details: `[style*="display: none" i], [style*="display:none" i] {
            display: revert !important; outline: 1px dashed #b08030; }`,
    // Objects are not run: they are boxes to take hold of. A selected graphic is to be seen.
    objects: `object, applet, embed { outline: 1px dashed #808080;
            background: rgba(128, 128, 128, 0.25); }
        :is(object, applet, embed):not([width]) { width: 16px; }
        :is(object, applet, embed):not([height]) { height: 16px; }
        img::selection { background: rgba(26, 115, 232, 0.25); }`,
};

function showSheets(names) {
    const sheets = names.map((name) => {
        const sheet = new CSSStyleSheet();
        sheet.replaceSync(kSheets[name]);
        return sheet;
    });
    document.adoptedStyleSheets = isLong ? [...sheets, narrowSheet] : sheets;
}
