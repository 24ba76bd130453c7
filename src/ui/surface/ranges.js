// The document's objects as the program sees them: selection, ranges, elements.

const kNone = 0;
const kText = 1;
const kControl = 2;

function elementOf(id) {
    const element = objects.get(id);
    if (!element || !element.isConnected) throw new Refusal(91);
    return element;
}

function rangeOf(id) {
    const range = objects.get(id);
    if (!range || !range.startContainer.isConnected) throw new Refusal(91);
    return range;
}

const parentOf = (range) => {
    const node = range.commonAncestorContainer;
    return node instanceof Element ? node : node.parentElement;
};

calls.selectionType = () => {
    if (control !== null) return kControl;
    const range = currentRange();
    return range === null || range.collapsed ? kNone : kText;
};
calls.selectionRange = () => (control !== null ? 0 : keep(currentRange()));
calls.selectedControl = () => keep(control);
calls.body = () => keep(document.body);

// ---- Elements

calls.innerHTML = (id) => upperInner(elementOf(id));
calls.outerHTML = (id) => upperElement(elementOf(id));
calls.sameElement = (id) => keep(elementOf(id));
calls.elementParent = (id) => keep(elementOf(id).parentElement);

calls.elementRange = (id) => {
    const range = wholeRange(elementOf(id));
    return keep(range);
};

const kPlaces = new Set(['beforebegin', 'afterbegin', 'beforeend', 'afterend']);
calls.insertAdjacent = (id, where, html) => {
    const element = elementOf(id);
    if (!kPlaces.has(where.toLowerCase())) throw new Refusal(5, where);
    stepFor(html, () => {
        try {
            element.insertAdjacentHTML(where, html);
        } catch (failure) {
            throw new Refusal(5, failure.message);
        }
    });
};

// The selection stays at what takes the place of an element that it was in.
calls.setOuterHTML = (id, html) => {
    const element = elementOf(id);
    const parent = element.parentNode;
    if (!(parent instanceof Element)) throw new Refusal(5);
    const range = currentRange();
    const wasControl = control === element;
    const wasInside = range !== null && element.contains(range.commonAncestorContainer);
    const wasCaret = range !== null && range.collapsed;
    stepFor(html, () => {
        const fragment = parseFragment(html, parent);
        const first = fragment.firstElementChild;
        element.replaceWith(fragment);
        if (first === null) return;
        if (wasControl && isControl(first)) {
            selectControl(first);
        } else if (wasControl || wasInside) {
            const inside = wholeRange(first);
            if (wasCaret) inside.collapse(true);
            selectRange(inside);
        }
    });
};

// ---- Ranges

const rangeHTML = (range) => upperInner(range.cloneContents());

function positionsOf(range) {
    const map = textMap();
    return [
        map.position(range.startContainer, range.startOffset),
        map.position(range.endContainer, range.endOffset)
    ];
}

function rangeText(range) {
    const [start, end] = range.collapsed ? [0, 0] : positionsOf(range);
    return textMap().text.slice(start, end).replaceAll(kObject, ' ');
}

function setRange(range, start, end) {
    const map = textMap();
    range.setStart(...map.place(start, start < end));
    if (start === end) {
        range.collapse(true);
    } else {
        range.setEnd(...map.place(end));
    }
}

calls.rangeHTML = (id) => rangeHTML(rangeOf(id));
calls.rangeText = (id) => rangeText(rangeOf(id));
calls.rangeParent = (id) => keep(parentOf(rangeOf(id)));
calls.rangeCollapse = (id, toStart) => rangeOf(id).collapse(toStart);

calls.rangePaste = (id, html) => {
    const range = rangeOf(id);
    stepFor(html, () => pasteHTML(range, html));
};

// `edge` is "both", "start" or "end".
calls.rangeMove = (id, edge, count) => {
    const range = rangeOf(id);
    const map = textMap();
    const [start, end] = positionsOf(range);
    const isStart = edge === 'start' || (edge === 'both' && count < 0);
    const from = isStart ? start : end;
    const to = map.advance(from, count);
    if (edge === 'both') {
        setRange(range, to, to);
    } else if (isStart) {
        setRange(range, to, Math.max(to, end));
    } else {
        setRange(range, Math.min(start, to), to);
    }
    return map.count(from, to);
};

const kWholeWords = 2;
const kMatchCase = 4;
const kLetter = /[\p{L}\p{N}_]/u;

function searchFor(text, flags) {
    const escaped = text.replace(/[\\^$.*+?()[\]{}|/]/g, '\\$&').replace(/[ \u00A0]/g, '[ \u00A0]');
    return new RegExp(escaped, flags & kMatchCase ? 'gu' : 'giu');
}

const isWholeWord = (text, start, end) =>
    !(kLetter.test(text.slice(Math.max(0, start - 1), start)) && kLetter.test(text[start])) &&
    !(kLetter.test(text.slice(end, end + 1)) && kLetter.test(text[end - 1]));

// The next hit from `start` on, as [start, end]; null if none lies within `limit`.
function findDown(text, search, flags, start, limit) {
    search.lastIndex = start;
    for (let hit = search.exec(text); hit !== null; hit = search.exec(text)) {
        const end = hit.index + hit[0].length;
        if (end > limit) return null;
        if (!(flags & kWholeWords) || isWholeWord(text, hit.index, end)) return [hit.index, end];
        search.lastIndex = hit.index + 1;
    }
    return null;
}

function findUp(text, search, flags, start, limit) {
    let last = null;
    for (let from = limit;;) {
        const hit = findDown(text, search, flags, from, start);
        if (hit === null) return last;
        last = hit;
        from = hit[0] + 1;
    }
}

function findIn(range, text, count, flags) {
    if (text === '') return false;
    const map = textMap();
    const [start, end] = positionsOf(range);
    const search = searchFor(text, flags);
    const hit = count < 0 ? findUp(map.text, search, flags, end, map.advance(start, count)) :
                            findDown(map.text, search, flags, start, map.advance(end, count));
    if (hit === null) return false;
    setRange(range, ...hit);
    return true;
}
calls.rangeFind = (id, text, count, flags) => findIn(rangeOf(id), text, count, flags);

calls.rangeSelect = (id) => selectRange(rangeOf(id));

function scrollTo(range) {
    const [rectangle] = range.getClientRects();
    if (rectangle && rectangle.top >= 0 && rectangle.bottom <= innerHeight) return;
    if (rectangle) {
        scrollBy(0, (rectangle.top + rectangle.bottom - innerHeight) / 2);
        return;
    }
    const node = range.startContainer;
    const child = node.childNodes[range.startOffset];
    const element = [child, node].find((each) => each instanceof Element) || node.parentElement;
    if (element) element.scrollIntoView({block: 'nearest'});
}
calls.rangeScroll = (id) => scrollTo(rangeOf(id));
