// What is selected: a place or a stretch of text, or one object as a whole. The engine knows no
// selected objects: we keep which one it is, with the engine's selection around it.

let control = null;
// The selection behind the last change, where a step that begins unseen began.
let lastSelection = null;

const kControls =
    new Set(('APPLET AUDIO BUTTON EMBED HR IFRAME IMG INPUT MARQUEE OBJECT SELECT TABLE TEXTAREA ' +
             'VIDEO')
                .split(' '));
const isAbsolute = (element) => getComputedStyle(element).position === 'absolute';
const isControl = (element) => kControls.has(upperName(element)) ||
    (element !== document.body && element.style && element.style.position === 'absolute');

const contextElement = (node) => (node instanceof Element ? node : node.parentElement);
const indexOf = (node) => Array.prototype.indexOf.call(node.parentNode.childNodes, node);

const wholeRange = (node) => {
    const range = document.createRange();
    range.selectNodeContents(node);
    return range;
};

// A copy of the selected range, held inside the body; null where there is none.
function currentRange() {
    const selection = getSelection();
    const {body} = document;
    if (body === null) return null;
    if (selection.rangeCount === 0) {
        const start = wholeRange(body);
        start.collapse(true);
        return start;
    }
    const range = selection.getRangeAt(0).cloneRange();
    // (Comparing the ends of a long body takes the engine long.)
    if (body.contains(range.startContainer) && body.contains(range.endContainer)) return range;
    const whole = wholeRange(body);
    if (range.compareBoundaryPoints(Range.START_TO_START, whole) < 0) range.setStart(body, 0);
    if (range.compareBoundaryPoints(Range.END_TO_END, whole) > 0) {
        range.setEnd(body, body.childNodes.length);
    }
    return range;
}

function nodeBehind(node) {
    let last = node;
    while (last !== null && last.nextSibling === null) last = last.parentNode;
    return last && last.nextSibling;
}

// The nodes that begin inside the range or that it begins in, in order. (The engine's own way of
// asking node by node counts siblings each time.)
function nodesIn(range) {
    const {startContainer, endContainer} = range;
    const first = startContainer.childNodes[range.startOffset];
    const stop = endContainer.childNodes[range.endOffset] || nodeBehind(endContainer);
    const nodes = [];
    let node = first || (startContainer.firstChild ? nodeBehind(startContainer) : startContainer);
    while (node !== null && node !== stop) {
        nodes.push(node);
        node = node.firstChild || nodeBehind(node);
    }
    return nodes;
}

function savedSelection() {
    const selection = getSelection();
    return {
        anchor: selection.anchorNode,
        anchorOffset: selection.anchorOffset,
        focus: selection.focusNode,
        focusOffset: selection.focusOffset,
        control,
    };
}

const lengthOf = (node) =>
    node instanceof CharacterData ? node.data.length : node.childNodes.length;
const isPlace = (node, offset) => node && node.isConnected && offset <= lengthOf(node);

function restoreSelection(saved) {
    if (!saved) return;
    if (saved.control && saved.control.isConnected) return selectControl(saved.control);
    control = null;
    if (!isPlace(saved.anchor, saved.anchorOffset) || !isPlace(saved.focus, saved.focusOffset)) {
        return;
    }
    getSelection().setBaseAndExtent(
        saved.anchor, saved.anchorOffset, saved.focus, saved.focusOffset);
}

function selectRange(range) {
    control = null;
    getSelection().setBaseAndExtent(
        range.startContainer, range.startOffset, range.endContainer, range.endOffset);
    selectionMoved();
}

function selectControl(element) {
    const index = indexOf(element);
    getSelection().setBaseAndExtent(element.parentNode, index, element.parentNode, index + 1);
    control = element;
    selectionMoved();
}

function placeCaret(node, offset) {
    const range = document.createRange();
    range.setStart(node, offset);
    selectRange(range);
}

// Whether the engine's selection is still the one around the selected object.
function isAroundControl() {
    if (!control.isConnected) return false;
    const selection = getSelection();
    if (selection.rangeCount === 0) return false;
    const range = selection.getRangeAt(0);
    return range.startContainer === control.parentNode &&
        range.endContainer === control.parentNode && range.startOffset === indexOf(control) &&
        range.endOffset === range.startOffset + 1;
}

function selectionMoved() {
    drawSoon();
    noteDisplay();
}

document.addEventListener('selectionchange', () => {
    if (control !== null && !isAroundControl()) control = null;
    if (!isStepRunning) lastSelection = savedSelection();
    selectionMoved();
});

const selectAll = () => selectRange(wholeRange(document.body));
