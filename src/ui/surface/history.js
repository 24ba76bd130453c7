// One history of undo over typing, commands and pastes. A step is the list of what has changed in
// the tree; taking it back sets the same nodes as they were.

const kMostSteps = 1000;
const kMostKeptText = 64e6;       // characters of old values in all steps
const kPauseMilliseconds = 2000;  // typing after it is a step of its own

// The state of the content: 0 as loaded, and a number of its own for each state since.
let version = 0;
let lastVersion = 0;

let done = [];
let undone = [];
let keptText = 0;
let isStepRunning = false;
let isComposing = false;

// ---- What has changed

// The host of our own drawings is no part of the document.
const isOwn = (nodes) => nodes.length === 1 && nodes[0] === overlayHost;
const isOfDocument = (record) =>
    record.type !== 'childList' || !(isOwn(record.addedNodes) || isOwn(record.removedNodes));

function changeOf(record) {
    switch (record.type) {
        case 'childList':
            return {
                target: record.target,
                added: [...record.addedNodes],
                removed: [...record.removedNodes],
                next: record.nextSibling,
                size: 0,
            };
        case 'characterData':
            return {node: record.target, value: record.oldValue, size: record.oldValue.length};
        default:
            return {
                element: record.target,
                name: record.attributeName,
                space: record.attributeNamespace,
                value: record.oldValue,
                size: (record.oldValue || '').length,
            };
    }
}

const observer = new MutationObserver((records) => {
    pushStep({kind: 'other', before: lastSelection, changes: changesIn(records)});
});

function observe() {
    observer.observe(document, {
        subtree: true,
        childList: true,
        attributes: true,
        attributeOldValue: true,
        characterData: true,
        characterDataOldValue: true,
    });
}

const changesIn = (records) => records.filter(isOfDocument).map(changeOf);
const takeChanges = () => changesIn(observer.takeRecords());

// ---- Swapping a change with its opposite

// Only the differing middle is replaced: ranges elsewhere in the text stay where they are.
function setText(node, text) {
    const old = node.data;
    const shorter = Math.min(old.length, text.length);
    let head = 0;
    while (head < shorter && old[head] === text[head]) ++head;
    let tail = 0;
    while (tail < shorter - head && old[old.length - 1 - tail] === text[text.length - 1 - tail]) {
        ++tail;
    }
    node.replaceData(head, old.length - head - tail, text.slice(head, text.length - tail));
}

function swapTree(change) {
    change.added.forEach((node) => node.remove());
    const next = change.next && change.next.parentNode === change.target ? change.next : null;
    change.removed.forEach((node) => change.target.insertBefore(node, next));
    [change.added, change.removed] = [change.removed, change.added];
}

function swapAttribute(change) {
    const {element, name, space, value} = change;
    change.value = element.getAttributeNS(space, name);
    if (value === null) {
        element.removeAttributeNS(space, name);
    } else if (space === null) {
        element.setAttribute(name, value);
    } else {
        element.setAttributeNS(space, name, value);
    }
}

function swap(change) {
    if (change.target) return swapTree(change);
    if (change.element) return swapAttribute(change);
    const now = change.node.data;
    setText(change.node, change.value);
    change.value = now;
}

// ---- Steps

function dropOldSteps() {
    while (done.length > kMostSteps || (keptText > kMostKeptText && done.length > 1)) {
        keptText -= done.shift().size;
    }
}

function appendChanges(step, changes) {
    for (const change of changes) {
        // Of one text typed on and on only its first value is wanted.
        const last = step.changes[step.changes.length - 1];
        if (last && last.node && last.node === change.node) continue;
        step.changes.push(change);
        step.size += change.size;
        keptText += change.size;
    }
}

const isSamePlace = (a, b) => a && b && a.anchor === b.anchor &&
    a.anchorOffset === b.anchorOffset && a.focus === b.focus && a.focusOffset === b.focusOffset;

const beginsWord = (step, data) => /\S/.test(data || '') && /\s$/.test(step.typed || '');

function joins(step, next) {
    if (!step || step.kind !== next.kind || !['typing', 'erasing'].includes(step.kind))
        return false;
    if (isComposing) return true;
    return next.time - step.time < kPauseMilliseconds && isSamePlace(step.after, next.before) &&
        !beginsWord(step, next.typed);
}

// Takes {kind, before, changes}, and for a transient step `transient`: it goes without a trace
// when it is taken back at once.
function pushStep(step) {
    if (step.changes.length === 0) return;
    step.time = performance.now();
    step.after = savedSelection();
    step.from = version;
    version = ++lastVersion;
    const last = done[done.length - 1];
    if (joins(last, step)) {
        appendChanges(last, step.changes);
        last.time = step.time;
        last.after = step.after;
        last.typed = (last.typed || '') + (step.typed || '');
        last.to = version;
    } else {
        const {changes} = step;
        done.push(
            {...step, changes: [], size: 0, to: version, undone: step.transient ? undone : null});
        appendChanges(done[done.length - 1], changes);
    }
    undone = [];
    dropOldSteps();
    noteEdited();
}

function noteEdited() {
    lastSelection = savedSelection();
    if (!isCalled) post('edited', {version});
    drawSoon();
    noteDisplay();
}

// What has changed by itself since the last step becomes a step.
function collectChanges() {
    pushStep({kind: 'other', before: lastSelection, changes: takeChanges()});
}

// Runs `work` as one step.
function runStep(kind, work, more = {}) {
    if (isStepRunning) return work();
    collectChanges();
    const before = savedSelection();
    isStepRunning = true;
    try {
        return work();
    } finally {
        isStepRunning = false;
        pushStep({kind, before, changes: takeChanges(), ...more});
    }
}

// A step that holds the marker leaves no trace when it is taken back.
const stepFor = (html, work) => runStep('command', work, {transient: html.includes(setup.marker)});

function undo() {
    collectChanges();
    const step = done.pop();
    if (!step) return;
    keptText -= step.size;
    for (let i = step.changes.length; i-- > 0;) swap(step.changes[i]);
    observer.takeRecords();
    version = step.from;
    if (step.transient) {
        undone = step.undone;
    } else {
        undone.push(step);
    }
    restoreSelection(step.before);
    noteEdited();
}

function redo() {
    collectChanges();
    const step = undone.pop();
    if (!step) return;
    step.changes.forEach(swap);
    observer.takeRecords();
    version = step.to;
    keptText += step.size;
    done.push(step);
    restoreSelection(step.after);
    noteEdited();
}

// ---- Typing

let beforeInput = null;

const kTyping = new Set(['insertText', 'insertCompositionText', 'insertFromComposition']);
const kindOfInput = (type) => {
    if (kTyping.has(type)) return 'typing';
    return type.startsWith('deleteContent') || type.startsWith('deleteWord') ? 'erasing' : type;
};

document.addEventListener('beforeinput', (event) => {
    if (isStepRunning) return;
    const own = kOwnInput[event.inputType];
    if (own !== undefined) {
        event.preventDefault();
        own();
        return;
    }
    collectChanges();
    beforeInput = {type: event.inputType, selection: savedSelection()};
}, true);

// What the engine would do in its own way on a key.
const kOwnInput = {
    historyUndo: undo,
    historyRedo: redo,
    formatBold: () => runCommand(5000),
    formatItalic: () => runCommand(5023),
    formatUnderline: () => runCommand(5048),
    insertFromPaste: () => {},
    insertFromDrop: () => {},
    deleteByDrag: () => {},
    deleteByCut: () => {},
};

document.addEventListener('input', (event) => {
    if (isStepRunning) return;
    // The event itself calls a new paragraph a text.
    const type = beforeInput ? beforeInput.type : event.inputType;
    const before = beforeInput ? beforeInput.selection : lastSelection;
    beforeInput = null;
    const wasCaret = before.anchor === before.focus && before.anchorOffset === before.focusOffset;
    pushStep({
        kind: kindOfInput(type),
        before,
        changes: takeTidiedChanges(type.startsWith('delete') || !wasCaret),
        typed: event.data,
    });
}, true);

document.addEventListener('compositionstart', () => {
    isComposing = false;
}, true);
document.addEventListener('compositionupdate', () => {
    isComposing = true;
}, true);
document.addEventListener('compositionend', () => {
    isComposing = false;
}, true);
