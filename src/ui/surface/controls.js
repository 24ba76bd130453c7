// Selecting objects by the mouse, changing their size and place, and the commands of objects that
// are positioned freely.

const kEdge = 5;  // pixels at the edge of a table by which it is taken hold of
const kGrid = 8;
const kLockName = 'data-locked';

const isLocked = (element) => element.hasAttribute(kLockName);
const isPositioned = (element) =>
    element instanceof HTMLElement && element !== document.body && isAbsolute(element);

// ---- Which object a click selects

function isAtEdge(element, {clientX, clientY}) {
    const box = element.getBoundingClientRect();
    return clientX < box.left + kEdge || clientX > box.right - kEdge || clientY < box.top + kEdge ||
        clientY > box.bottom - kEdge;
}

function controlUnder(event) {
    const target = event.target;
    if (!(target instanceof Element) || !document.body.contains(target)) return null;
    const object = target.closest('object,select,button,svg');
    if (object !== null && object.localName !== 'svg') return object;
    if (isControl(target) && upperName(target) !== 'TABLE' && !isPositioned(target)) return target;
    for (let element = target; element !== document.body; element = element.parentElement) {
        const isHeld = element.localName === 'table' || isPositioned(element);
        if (isHeld && (isAtEdge(element, event) || kSelectedWhole.has(upperName(element)))) {
            return element;
        }
    }
    return null;
}
const kSelectedWhole =
    new Set('IMG HR INPUT BUTTON SELECT TEXTAREA OBJECT EMBED IFRAME'.split(' '));

// ---- Changing size and place by the mouse

let drag = null;  // {element, edges, startX, startY, box}: `edges` is '' for the place

function startDrag(element, edges, event) {
    const box = element.getBoundingClientRect();
    drag = {element, edges, startX: event.clientX, startY: event.clientY, box, frame: box};
}

const snapped = (value) => (view.grid ? Math.round(value / kGrid) * kGrid : Math.round(value));

// The frame that the drag has come to. The corners keep the shape of a graphic.
function frameOfDrag(event) {
    const {element, edges, box} = drag;
    const [dx, dy] = [event.clientX - drag.startX, event.clientY - drag.startY];
    if (edges === '')
        return {left: box.left + dx, top: box.top + dy, width: box.width, height: box.height};
    let width = Math.max(1, box.width + (edges.includes('e') ? dx : edges.includes('w') ? -dx : 0));
    let height = Math.max(
        1,
        box.height +
            (edges.includes('s')     ? dy :
                 edges.includes('n') ? -dy :
                                       0));
    if (edges.length === 2 && element.localName === 'img') height = width * box.height / box.width;
    width = Math.round(width);
    height = Math.round(height);
    return {
        left: edges.includes('w') ? box.right - width : box.left,
        top: edges.includes('n') ? box.bottom - height : box.top,
        width,
        height,
    };
}

const kSized = new Set('IMG TABLE OBJECT EMBED IFRAME HR APPLET VIDEO'.split(' '));

// A size in the style would hide one in an attribute.
function setSize(element, name, pixels) {
    if (element.style[name] !== '' || !kSized.has(upperName(element))) {
        element.style[name] = `${pixels}px`;
    } else {
        element.setAttribute(name, pixels);
    }
}

function finishDrag(event) {
    const {element, edges, box} = drag;
    const frame = frameOfDrag(event);
    drag = null;
    if (!element.isConnected || (event.clientX === undefined)) return drawSoon();
    runStep('command', () => {
        if (edges === '') return moveTo(element, frame.left - box.left, frame.top - box.top);
        if (frame.width !== Math.round(box.width)) setSize(element, 'width', frame.width);
        if (frame.height !== Math.round(box.height) && edges !== 'e' && edges !== 'w') {
            setSize(element, 'height', frame.height);
        }
    });
    drawSoon();
}

function moveTo(element, dx, dy) {
    if (dx === 0 && dy === 0) return;
    const style = getComputedStyle(element);
    element.style.left = `${snapped((parseFloat(style.left) || 0) + dx)}px`;
    element.style.top = `${snapped((parseFloat(style.top) || 0) + dy)}px`;
}

let pressed = null;  // the object under the pressed button

document.addEventListener('mousedown', (event) => {
    if (!isEditing()) return;
    pressed = null;
    const edges = edgesOfHandle(event);
    if (edges !== null) {
        event.preventDefault();
        startDrag(control, edges, event);
        return;
    }
    const element = controlUnder(event);
    if (element === null) return;
    // The engine drags a graphic about by itself; nothing else may get the focus or be entered.
    if (element.localName === 'img' && !isPositioned(element)) {
        pressed = element;
        return;
    }
    event.preventDefault();
    focus();
    selectControl(element);
    if (event.button === 0 && isPositioned(element) && !isLocked(element)) {
        startDrag(element, '', event);
    }
}, true);

document.addEventListener('mousemove', (event) => {
    if (drag === null) return;
    event.preventDefault();
    drag.frame = frameOfDrag(event);
    drawSoon();
}, true);

document.addEventListener('mouseup', (event) => {
    if (drag !== null) {
        event.preventDefault();
        finishDrag(event);
    } else if (pressed !== null && event.target === pressed) {
        selectControl(pressed);
    }
    pressed = null;
}, true);

// What is dragged off is what the pointer is on.
document.addEventListener('dragstart', (event) => {
    if (!isEditing()) return;
    if (drag !== null) return event.preventDefault();
    if (event.target instanceof Element && isControl(event.target)) selectControl(event.target);
}, true);

document.addEventListener('submit', (event) => event.preventDefault(), true);

// ---- Free positions

// The object that is selected, or the positioned one around the caret.
function positionable() {
    if (control !== null) return control;
    let element = contextElement(currentRange().startContainer);
    while (element !== null && element !== document.body && !isPositioned(element)) {
        element = element.parentElement;
    }
    return element === document.body ? null : element;
}

function statusOfPosition() {
    const element = isEditing() ? positionable() : null;
    if (element === null) return kDisabled;
    return isPositioned(element) ? kLatched : kEnabled;
}

function dropEmptyStyle(element) {
    if (element.getAttribute('style') === '') element.removeAttribute('style');
}

function togglePosition() {
    const element = positionable();
    const {style} = element;
    if (isPositioned(element)) {
        for (const name of ['position', 'left', 'top', 'z-index']) style.removeProperty(name);
        element.removeAttribute(kLockName);
        dropEmptyStyle(element);
    } else {
        const {offsetLeft, offsetTop} = element;
        style.position = 'absolute';
        style.left = `${offsetLeft}px`;
        style.top = `${offsetTop}px`;
    }
    if (control !== null) selectControl(control);
}

function positioned() {
    const element = isEditing() ? positionable() : null;
    return element !== null && isPositioned(element) ? element : null;
}

const layerOf = (element) => Number.parseInt(getComputedStyle(element).zIndex, 10) || 0;
const setLayer = (element, layer) => {
    element.style.zIndex = layer;
};

function otherLayers(element) {
    const all = Array.from(document.body.querySelectorAll('[style]')).filter(isPositioned);
    return all.filter((other) => other !== element).map(layerOf);
}

// Above the text layers are positive, below it negative; an order stays on its side of the text.
const sameSide = (element) => {
    const isBelow = layerOf(element) < 0;
    return otherLayers(element).filter((layer) => layer < 0 === isBelow);
};

function toFront(element) {
    const top = Math.max(layerOf(element) < 0 ? -kMostSpan : 0, ...sameSide(element));
    setLayer(element, layerOf(element) < 0 ? Math.min(-1, top + 1) : top + 1);
}

function toBack(element) {
    const bottom = Math.min(layerOf(element) < 0 ? 0 : 1, ...sameSide(element));
    setLayer(element, layerOf(element) < 0 ? bottom - 1 : Math.max(0, bottom - 1));
}

function forward(element) {
    const above = sameSide(element).filter((layer) => layer >= layerOf(element));
    if (above.length > 0) setLayer(element, nextLayer(element, Math.min(...above) + 1));
}

function backward(element) {
    const below = sameSide(element).filter((layer) => layer <= layerOf(element));
    if (below.length > 0) setLayer(element, nextLayer(element, Math.max(...below) - 1));
}

// Stays on its side.
const nextLayer = (element, layer) =>
    (layerOf(element) < 0 ? Math.min(-1, layer) : Math.max(0, layer));

const defineForPositioned = (number, run) =>
    define(number, () => enabledIf(positioned() !== null), () => run(positioned()));

define(5028, statusOfPosition, togglePosition);
define(5027, () => {
    const element = positioned();
    if (element === null) return kDisabled;
    return isLocked(element) ? kLatched : kEnabled;
}, () => positioned().toggleAttribute(kLockName));
defineForPositioned(5036, backward);
defineForPositioned(5037, forward);
defineForPositioned(5038, (element) => setLayer(element, Math.min(-1, -layerOf(element))));
defineForPositioned(5039, (element) => setLayer(element, Math.max(1, Math.abs(layerOf(element)))));
defineForPositioned(5040, toBack);
defineForPositioned(5041, toFront);
