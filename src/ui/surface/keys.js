// Keys and clicks that mean something of their own on the surface.

const kTabWidth = '\u00A0\u00A0\u00A0\u00A0';

// In a table the key goes from cell to cell, and past the last one makes a row.
function tabInTable(cell, isBack) {
    const cells = Array.from(cell.closest('table').querySelectorAll('td,th'));
    const next = cells[cells.indexOf(cell) + (isBack ? -1 : 1)];
    if (!next && !isBack) {
        runCommand(5021);
    } else if (next) {
        const range = wholeRange(next);
        selectRange(range);
    }
}

function tab(isBack) {
    const node = currentRange().startContainer;
    const cell = contextElement(node).closest('td,th');
    if (cell !== null) return tabInTable(cell, isBack);
    if (listOf(node) !== null) return runCommand(isBack ? 5031 : 5018);
    if (!isBack) runStep('command', () => insertAtSelection(fragmentWith(kTabWidth)));
}

const kKeys = {
    'ctrl z': undo,
    'ctrl shift z': redo,
    'ctrl y': redo,
    'ctrl a': selectAll,
    'ctrl b': () => runCommand(5000),
    'ctrl i': () => runCommand(5023),
    'ctrl u': () => runCommand(5048),
    tab: () => tab(false),
    'shift tab': () => tab(true),
};

function nameOfKey(event) {
    const held = (event.ctrlKey || event.metaKey ? 'ctrl ' : '') + (event.shiftKey ? 'shift ' : '');
    return event.altKey ? '' : held + event.key.toLowerCase();
}

document.addEventListener('keydown', (event) => {
    if (!isEditing() || event.isComposing) return;
    isPlainWanted = nameOfKey(event) === 'ctrl shift v';
    const work = kKeys[nameOfKey(event)];
    if (work === undefined) return;
    event.preventDefault();
    try {
        work();
    } catch (failure) {
        // What a key asks for may not be possible here; then it does nothing.
        if (!(failure instanceof Refusal)) throw failure;
    }
}, true);

// A click places the caret; with Ctrl it follows a link.
document.addEventListener('click', (event) => {
    if (!isEditing()) return;
    const link = event.target instanceof Element && event.target.closest('a[href],area[href]');
    if (!link) return;
    event.preventDefault();
    if (event.ctrlKey || event.metaKey) post('link', {url: String(link.href)});
}, true);
document.addEventListener('auxclick', (event) => {
    if (isEditing()) event.preventDefault();
}, true);

// An object goes as a whole.
function deleteControl(event) {
    if (control === null || !['Delete', 'Backspace'].includes(event.key)) return;
    event.preventDefault();
    runStep('command', deleteSelection);
}
document.addEventListener('keydown', (event) => {
    if (isEditing()) deleteControl(event);
}, true);

document.addEventListener('dblclick', () => post('doubleclick'), true);
