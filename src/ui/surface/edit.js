// Putting content into the document and taking it out, without the engine's own ideas of style.

const kParagraphs = new Set('P H1 H2 H3 H4 H5 H6 PRE ADDRESS DT'.split(' '));
const isParagraph = (node) => node instanceof Element && kParagraphs.has(upperName(node));
const isCell = (node) => node instanceof Element && /^T[DH]$/.test(upperName(node));

// ---- Taking out

const isBlank = (node) => node.nodeType === Node.COMMENT_NODE ||
    (node.nodeType === Node.TEXT_NODE && !/\S/.test(node.data));
const hasNothing = (element) =>
    element.querySelector('img,hr,input,table,object,br,iframe,embed,a[name],a[id]') === null &&
    !/[^ \t\r\n\f]/.test(element.textContent);

// An empty block has no height, and no place for the caret, without it.
function keepOpen(block) {
    if (block.isConnected && (isParagraph(block) || isCell(block) || upperName(block) === 'LI') &&
        hasNothing(block)) {
        block.append(document.createElement('br'));
    }
}

const kHolders = new Set('UL OL DL DIR MENU LI P DIV BLOCKQUOTE'.split(' '));

// Takes the emptied element away, and what held nothing else, but not what holds `kept`.
function removeEmptied(element, kept) {
    const parent = element.parentNode;
    element.remove();
    const isHolder = parent instanceof Element && kHolders.has(upperName(parent));
    if (isHolder && !parent.contains(kept) && hasNothing(parent)) removeEmptied(parent, kept);
}

const kFormats = new Set(
    'A ABBR B BIG CITE CODE DFN EM FONT I KBD S SMALL SPAN STRIKE STRONG SUB SUP TT U VAR'.split(
        ' '));

// The formats of what is gone go too, but for those around `kept`.
function removeEmptyFormats(node, kept) {
    let element = contextElement(node);
    while (element !== null && kFormats.has(upperName(element)) && !element.contains(kept) &&
           element.textContent === '' && element.firstElementChild === null) {
        const parent = element.parentElement;
        element.remove();
        element = parent;
    }
}

// Deletes the range and makes one block of those in which it began and ended.
function deleteRange(range) {
    if (range.collapsed) return;
    const {startContainer, startOffset, endContainer} = range;
    const first = blockOf(startContainer);
    const last = blockOf(endContainer);
    const cellOf = (node) => contextElement(node).closest('td,th');
    const isOneCell = cellOf(startContainer) === cellOf(endContainer);
    range.deleteContents();
    removeEmptyFormats(endContainer, startContainer);
    if (first !== last && isOneCell && last.isConnected && !last.contains(first)) {
        const place = first.contains(last) ? last : null;
        for (const child of Array.from(last.childNodes)) first.insertBefore(child, place);
        removeEmptied(last, first);
    }
    if (startContainer.isConnected) {
        range.setStart(startContainer, Math.min(startOffset, lengthOf(startContainer)));
    }
    range.collapse(true);
}

// ---- Putting in

// The placeholder of an empty block gives way to content.
function dropPlaceholder(range) {
    const block = blockOf(range.startContainer);
    const breaks = block.getElementsByTagName('br');
    if (breaks.length !== 1 || /[^ \t\r\n\f]/.test(block.textContent)) return;
    const others = block.querySelectorAll('img,hr,input,table,object,iframe,embed');
    if (others.length > 0 || breaks[0].nextElementSibling !== null) return;
    breaks[0].remove();
}

const holdsBlocks = (fragment) => Array.from(fragment.childNodes).some(isBlock);

// A paragraph cannot hold blocks: it is split there, and the range stands between the halves.
function leaveParagraph(range) {
    let paragraph = blockOf(range.startContainer);
    if (!isParagraph(paragraph)) return;
    const tail = document.createRange();
    tail.setStart(range.startContainer, range.startOffset);
    tail.setEndAfter(paragraph);
    const rest = tail.extractContents();
    range.setStartAfter(paragraph);
    range.collapse(true);
    const half = rest.firstElementChild;
    if (half !== null && !hasNothing(half)) range.insertNode(rest);
    range.collapse(true);
    if (hasNothing(paragraph)) paragraph.remove();
}

function insertText(range, text) {
    const node = range.startContainer;
    if (node.nodeType === Node.TEXT_NODE) {
        const offset = range.startOffset;
        node.insertData(offset, text);
        range.setStart(node, offset + text.length);
    } else {
        const added = document.createTextNode(text);
        range.insertNode(added);
        range.setStart(added, text.length);
    }
    range.collapse(true);
}

// Puts the fragment in the place of the range, which is empty behind it then.
function insertFragment(range, fragment) {
    deleteRange(range);
    const {firstChild, lastChild} = fragment;
    if (firstChild === null) {
        keepOpen(blockOf(range.startContainer));
        return;
    }
    dropPlaceholder(range);
    if (firstChild === lastChild && firstChild.nodeType === Node.TEXT_NODE) {
        insertText(range, firstChild.data);
        return;
    }
    if (holdsBlocks(fragment)) leaveParagraph(range);
    range.insertNode(fragment);
    // The halves of a text split in vain go.
    for (const half of [firstChild.previousSibling, lastChild.nextSibling]) {
        if (half !== null && half.nodeType === Node.TEXT_NODE && half.data === '') half.remove();
    }
    range.setStartAfter(lastChild);
    range.collapse(true);
}

const contextOf = (range) => {
    const node = range.startContainer;
    return node instanceof Element ? node : node.parentElement || document.body;
};

// A marker in front of what the range holds already leaves that alone.
function pasteHTML(range, html) {
    const {marker} = setup;
    if (html.startsWith(marker) && html.slice(marker.length) === rangeHTML(range)) {
        range.collapse(true);
        insertText(range, marker);
        return;
    }
    insertFragment(range, parseFragment(html, contextOf(range)));
    if (getSelection().rangeCount === 0 ||
        !isPlace(getSelection().anchorNode, getSelection().anchorOffset)) {
        selectRange(range);
    }
}

function fragmentWith(content) {
    const fragment = document.createDocumentFragment();
    fragment.append(content);
    return fragment;
}

// Puts a fragment in the place of the selection, with the caret behind it.
function insertAtSelection(fragment) {
    const range = currentRange();
    insertFragment(range, fragment);
    selectRange(range);
}

function deleteSelection() {
    const range = currentRange();
    const block = blockOf(range.startContainer);
    deleteRange(range);
    keepOpen(block);
    selectRange(range);
}

// ---- After the engine's own editing

// Joining paragraphs, as a deletion does, the engine writes their looks into spans: they go again.
function takeTidiedChanges(isDeletion) {
    const changes = takeChanges();
    if (!isDeletion) return changes;
    unwrapNewSpans(changes);
    return [...changes, ...takeChanges()];
}

function unwrap(element) { element.replaceWith(...element.childNodes); }

// Of elements that were there before only the place has changed.
function newElements(changes) {
    const moved = new Set();
    const found = new Set();
    for (const change of changes) {
        if (!change.target) continue;
        change.removed.forEach((node) => moved.add(node));
        for (const node of change.added) {
            if (node instanceof Element && !moved.has(node)) found.add(node);
        }
    }
    return [...found].filter((element) => element.isConnected);
}

function unwrapNewSpans(changes) {
    const isStyleOnly = (element) => /^(SPAN|FONT)$/.test(upperName(element)) &&
        element.attributes.length === 1 && element.hasAttribute('style');
    const saved = savedSelection();
    const spans = newElements(changes).filter(isStyleOnly);
    if (spans.length === 0) return;
    spans.forEach(unwrap);
    restoreSelection(saved);
}
