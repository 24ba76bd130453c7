// The commands of text and paragraphs.

const kDisabled = 1;
const kEnabled = 3;
const kLatched = 7;
const kNinched = 11;

const enabledIf = (condition) => (condition ? kEnabled : kDisabled);
function native(name, value = null) {
    prepare();
    widen();
    return document.execCommand(name, false, value);
}

// Before the first text. (The text map would do, but takes its time on a long document.)
function firstPlace() {
    const texts = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
    for (let text = texts.nextNode(); text !== null; text = texts.nextNode()) {
        const at = text.data.search(/[^ \t\r\n\f]/);
        if (at >= 0 && !kUnseen.has(upperName(text.parentNode))) return [text, at];
    }
    return [document.body, 0];
}

// The engine is told how to edit when that begins: telling it makes it lay the page out, for which
// a topic that is only looked at need not wait.
let isPrepared = false;
function prepare() {
    if (isPrepared || document.body === null) return;
    isPrepared = true;
    document.execCommand('styleWithCSS', false, false);
    document.execCommand('defaultParagraphSeparator', false, 'p');
    if (getSelection().rangeCount === 0) getSelection().collapse(...firstPlace());
    lastSelection = savedSelection();
}
calls.prepare = prepare;
addEventListener('focus', prepare);
document.addEventListener('keydown', prepare, true);

// number -> {status(), run(value), isStep}. `run` gives the result of a command that has one.
const commands = {};
function define(number, status, run, isStep = true) {
    commands[number] = {status: () => (document.body === null ? kDisabled : status()), run, isStep};
}

function runCommand(number, value = null) {
    const command = commands[number];
    if (!command) throw new Refusal(5);
    if (command.status() < kEnabled) throw new Refusal(445);
    if (!command.isStep) return command.run(value);
    prepare();
    return runStep('command', () => command.run(value));
}
calls.command = runCommand;
calls.statuses = () =>
    Object.fromEntries(Object.entries(commands).map(([number, {status}]) => [number, status()]));

const canEdit = () => enabledIf(isEditing());
const canEditText = () => enabledIf(isEditing() && control === null);

// ---- Characters

// The engine looks at all that is selected, which it does not end with in a long document.
function stateAtStart(name) {
    const style = getComputedStyle(contextOf(currentRange()));
    switch (name) {
        case 'bold':
            return Number(style.fontWeight) >= 600;
        case 'italic':
            return style.fontStyle === 'italic';
        default:
            return style.textDecorationLine.includes('underline');
    }
}

function statusOfState(name) {
    if (!isEditing() || control !== null) return kDisabled;
    if (isLong && !currentRange().collapsed) return stateAtStart(name) ? kLatched : kEnabled;
    if (document.queryCommandIndeterm(name)) return kNinched;
    return document.queryCommandState(name) ? kLatched : kEnabled;
}
const defineToggle = (number, name) =>
    define(number, () => statusOfState(name), () => native(name));

defineToggle(5000, 'bold');
defineToggle(5023, 'italic');
defineToggle(5048, 'underline');

// "rgb(1, 2, 3)" as "#010203"; null for what lets the ground shine through.
function hexColor(color) {
    const parts = (color || '').match(/[\d.]+/g);
    if (parts === null || parts.length < 3 || parts[3] === '0') return null;
    return '#' +
        parts.slice(0, 3)
            .map((part) => Number(part).toString(16).padStart(2, '0'))
            .join('')
            .toUpperCase();
}

function backColor() {
    for (let node = contextOf(currentRange()); node !== null; node = node.parentElement) {
        const color = hexColor(getComputedStyle(node).backgroundColor);
        if (color !== null) return color;
    }
    return '#FFFFFF';
}

function fontName() {
    const name = document.queryCommandValue('fontName');
    return name.replace(/^["']|["']$/g, '');
}

function colorOf(value) {
    if (!/^#[0-9a-f]{6}$/i.test(value)) throw new Refusal(5, value);
    return value;
}

function sizeOf(value) {
    if (!/^[1-7]$/.test(String(value))) throw new Refusal(5, value);
    return String(value);
}

function nameOf(value) {
    if (typeof value !== 'string' || value === '') throw new Refusal(5);
    return value;
}

define(5010, canEditText, backColor, false);
define(5013, canEditText, fontName, false);
define(5014, canEditText, () => Number(document.queryCommandValue('fontSize')) || 3, false);
define(
    5015, canEditText, () => hexColor(document.queryCommandValue('foreColor')) || '#000000', false);
define(5042, canEditText, (value) => native('backColor', colorOf(value)));
define(5044, canEditText, (value) => native('fontName', nameOf(value)));
define(5045, canEditText, (value) => native('fontSize', sizeOf(value)));
define(5046, canEditText, (value) => native('foreColor', colorOf(value)));
define(5034, canEditText, () => native('removeFormat'));

// What the dialog for fonts shows and gives: {name, size, color, bold, italic, underline}.
const kStyles = {
    bold: 'bold',
    italic: 'italic',
    underline: 'underline'
};
calls.font = () => ({
    name: fontName(),
    size: Number(document.queryCommandValue('fontSize')) || 3,
    color: hexColor(document.queryCommandValue('foreColor')) || '#000000',
    ...Object.fromEntries(
        Object.keys(kStyles).map((name) => [name, document.queryCommandState(name)])),
});
define(5009, canEditText, (font) => {
    if (font === null) throw new Refusal(5);
    const was = calls.font();
    if (font.name !== was.name) native('fontName', nameOf(font.name));
    if (font.size !== was.size) native('fontSize', sizeOf(font.size));
    if (font.color !== was.color) native('foreColor', colorOf(font.color));
    for (const name of Object.keys(kStyles)) {
        if (font[name] !== was[name]) native(name);
    }
});

// ---- Paragraphs

// The nodes with a look of their own that the range holds or touches.
function leavesIn(range) {
    const isLeaf = (node) => node.firstChild === null &&
        (node instanceof Element ||
         (node.nodeType === Node.TEXT_NODE &&
          (/\S/.test(node.data) || isParagraph(node.parentNode))));
    const leaves = range.collapsed ? [] : nodesIn(range).filter(isLeaf);
    return leaves.length > 0 ? leaves : [range.startContainer];
}
const selectedBlocks = () => [...new Set(leavesIn(currentRange()).map(blockOf))];

const kHaveAlign = new Set('P DIV H1 H2 H3 H4 H5 H6 TD TH TR CAPTION'.split(' '));

function alignmentOf(block) {
    const align = getComputedStyle(block).textAlign.replace('-webkit-', '');
    return align === 'start' || align === 'justify' ? 'left' : align;
}

function align(block, side) {
    block.style.removeProperty('text-align');
    if (block.getAttribute('style') === '') block.removeAttribute('style');
    block.removeAttribute('align');
    if (alignmentOf(block) === side) return;
    if (kHaveAlign.has(upperName(block))) {
        block.setAttribute('align', side);
    } else {
        block.style.textAlign = side;
    }
}

function alignSelection(side) {
    // Text that stands in no block of its own would take all the rest along.
    if (selectedBlocks().some((block) => block === document.body || upperName(block) === 'FORM')) {
        native('formatBlock', 'p');
    }
    selectedBlocks().forEach((block) => align(block, side));
}

function statusOfAlignment(side) {
    if (!isEditing()) return kDisabled;
    return alignmentOf(blockOf(currentRange().startContainer)) === side ? kLatched : kEnabled;
}

for (const [number, side] of [[5024, 'center'], [5025, 'left'], [5026, 'right']]) {
    define(number, () => statusOfAlignment(side), () => alignSelection(side));
}

// The engine styles the quotes that it indents by: a plain one does the same.
function indent() {
    const before = new Set(document.body.getElementsByTagName('blockquote'));
    native('indent');
    for (const quote of document.body.getElementsByTagName('blockquote')) {
        if (!before.has(quote)) quote.removeAttribute('style');
    }
}
define(5018, canEditText, indent);
define(5031, canEditText, () => native('outdent'));

function rename(element, name) {
    const renamed = document.createElement(name);
    for (const attribute of element.attributes)
        renamed.setAttribute(attribute.name, attribute.value);
    renamed.append(...element.childNodes);
    element.replaceWith(renamed);
    return renamed;
}

function keepingSelection(work) {
    const saved = savedSelection();
    work();
    restoreSelection(saved);
}

const listOf = (node) => contextElement(node).closest('ol,ul,dir,menu');

function makeList(name) {
    const isIn = () => {
        const list = listOf(currentRange().startContainer);
        return list !== null && list.localName === name;
    };
    if (isIn()) return;
    native(name === 'ol' ? 'insertOrderedList' : 'insertUnorderedList');
    freeLists();
    if (name === 'ol' || name === 'ul') return;
    const lists = new Set(leavesIn(currentRange()).map(listOf));
    keepingSelection(
        () => lists.forEach((list) => list && list.localName === 'ul' && rename(list, name)));
}

// The engine leaves a list inside the paragraph that it was made of, where none may be.
function freeLists() {
    keepingSelection(() => {
        for (const list of document.body.querySelectorAll('p > ul, p > ol')) {
            const paragraph = list.parentNode;
            if (hasNothingBeside(list)) paragraph.replaceWith(list);
        }
    });
}
const hasNothingBeside = (list) =>
    Array.from(list.parentNode.childNodes).every((node) => node === list || isBlank(node));

function toggleList(name) {
    const list = listOf(currentRange().startContainer);
    if (list !== null && list.localName === name) {
        native(name === 'ol' ? 'insertOrderedList' : 'insertUnorderedList');
        return;
    }
    makeList(name);
}

function statusOfList(name) {
    if (!isEditing() || control !== null) return kDisabled;
    const list = listOf(currentRange().startContainer);
    return list !== null && list.localName === name ? kLatched : kEnabled;
}
define(5030, () => statusOfList('ol'), () => toggleList('ol'));
define(5051, () => statusOfList('ul'), () => toggleList('ul'));

// ---- Block formats

const kBlockFormats = new Map([
    ['Normal', 'p'],
    ['Formatted', 'pre'],
    ['Address', 'address'],
    ['Heading 1', 'h1'],
    ['Heading 2', 'h2'],
    ['Heading 3', 'h3'],
    ['Heading 4', 'h4'],
    ['Heading 5', 'h5'],
    ['Heading 6', 'h6'],
    ['Numbered List', 'ol'],
    ['Bulleted List', 'ul'],
    ['Directory List', 'dir'],
    ['Menu List', 'menu'],
    ['Definition Term', 'dt'],
    ['Definition', 'dd'],
    ['Paragraph', 'p'],
]);
const kFormatOfBlock =
    new Map([...kBlockFormats].reverse().map(([name, element]) => [element, name]));

function blockFormat() {
    const within = contextElement(currentRange().startContainer);
    const block = within.closest('li,dt,dd,pre,address,h1,h2,h3,h4,h5,h6,td,th,body');
    const element = block !== null && block.localName === 'li' ? listOf(block) : block;
    return (element !== null && kFormatOfBlock.get(element.localName)) || 'Normal';
}

function leaveList() {
    for (let list = listOf(currentRange().startContainer); list !== null;) {
        native(list.localName === 'ol' ? 'insertOrderedList' : 'insertUnorderedList');
        const next = listOf(currentRange().startContainer);
        if (next === list) return;
        list = next;
    }
}

// A definition list has its entries around it, and holds nothing else.
function leaveDefinitions() {
    keepingSelection(() => {
        for (const entry of selectedBlocks().filter((block) => /^D[TD]$/.test(upperName(block)))) {
            const list = entry.parentNode;
            const paragraph = rename(entry, 'p');
            if (list.localName !== 'dl') continue;
            const rest = list.cloneNode(false);
            while (paragraph.nextSibling !== null) rest.append(paragraph.nextSibling);
            list.after(paragraph);
            if (!hasNothing(rest)) paragraph.after(rest);
            if (hasNothing(list)) list.remove();
        }
    });
}

const isSameList = (node) => node instanceof Element && node.localName === 'dl';
function beside(node, side) {
    let next = node[side];
    while (next !== null && isBlank(next)) next = next[side];
    return next;
}

function makeDefinitions(name) {
    native('formatBlock', 'p');
    keepingSelection(() => {
        for (const block of selectedBlocks().filter((each) => upperName(each) === 'P')) {
            const entry = rename(block, name);
            const previous = beside(entry, 'previousSibling');
            if (isSameList(previous)) {
                previous.append(entry);
            } else {
                const list = document.createElement('dl');
                entry.replaceWith(list);
                list.append(entry);
            }
        }
    });
}

function setBlockFormat(value) {
    const name = kBlockFormats.get(value);
    if (name === undefined) throw new Refusal(5, value);
    if (['ol', 'ul', 'dir', 'menu'].includes(name)) {
        leaveDefinitions();
        makeList(name);
        return;
    }
    leaveList();
    leaveDefinitions();
    if (name === 'dt' || name === 'dd') {
        makeDefinitions(name);
    } else {
        native('formatBlock', name);
    }
}

define(5011, canEditText, blockFormat, false);
define(5012, () => kEnabled, () => [...kBlockFormats.keys()], false);
define(5043, canEditText, setBlockFormat);

// ---- Links and graphics

const linkAt = (node) => contextElement(node).closest('a[href]');

function linksIn(range) {
    const around = linkAt(range.commonAncestorContainer);
    if (around !== null || range.collapsed) return around === null ? [] : [around];
    const first = linkAt(range.startContainer);
    const links =
        nodesIn(range).filter((node) => node instanceof Element && node.matches('a[href]'));
    return first === null ? links : [...new Set([first, ...links])];
}

function makeLink(value) {
    const href = nameOf(value);
    const range = currentRange();
    const around = linkAt(control || range.commonAncestorContainer);
    if (around !== null) {
        around.setAttribute('href', href);
    } else if (control !== null) {
        const link = document.createElement('a');
        link.setAttribute('href', href);
        control.replaceWith(link);
        link.append(control);
        selectControl(control);
    } else if (range.collapsed) {
        const link = document.createElement('a');
        link.setAttribute('href', href);
        link.append(href);
        insertAtSelection(fragmentWith(link));
    } else {
        native('createLink', href);
    }
}

// An anchor that has a name stays as that.
function removeLink(link) {
    if (link.hasAttribute('name') || link.hasAttribute('id')) {
        link.removeAttribute('href');
    } else {
        unwrap(link);
    }
}

define(5016, canEdit, makeLink);
define(
    5050, () => enabledIf(isEditing() && linksIn(currentRange()).length > 0),
    () => keepingSelection(() => linksIn(currentRange()).forEach(removeLink)));
calls.link = () => {
    const [link] = linksIn(currentRange());
    return link ? link.getAttribute('href') : '';
};

define(5017, canEdit, (value) => {
    const image = document.createElement('img');
    image.setAttribute('src', nameOf(value));
    insertAtSelection(fragmentWith(image));
});

// ---- The whole

const isSomethingSelected = () => control !== null || !getSelection().isCollapsed;

function deleteCommand() {
    if (isSomethingSelected()) {
        deleteSelection();
    } else {
        native('forwardDelete');
    }
}

define(5004, canEdit, deleteCommand);
define(5035, () => kEnabled, selectAll, false);
define(5049, () => enabledIf(isEditing() && done.length > 0), undo, false);
define(5033, () => enabledIf(isEditing() && undone.length > 0), redo, false);
