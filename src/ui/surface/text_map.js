// The characters of the body, by which ranges are moved and texts are found. Each character that
// is shown counts one (blanks that are shown as one are one), and so does each line break, each
// graphic or other object, and each boundary between blocks.

const kBlocks = new Set(
    ('ADDRESS ARTICLE ASIDE BLOCKQUOTE BODY CAPTION CENTER DD DETAILS DIR DIV DL DT FIELDSET ' +
     'FIGCAPTION FIGURE FOOTER FORM H1 H2 H3 H4 H5 H6 HEADER HR LEGEND LI LISTING MAIN MENU NAV ' +
     'OL P PLAINTEXT PRE SECTION SUMMARY TABLE TBODY TD TFOOT TH THEAD TR UL XMP')
        .split(' '));
const kObjects =
    new Set(('APPLET AUDIO CANVAS EMBED HR IFRAME IMG INPUT MARQUEE OBJECT SELECT TEXTAREA VIDEO ' +
             'SVG')
                .split(' '));
const kUnseen = new Set(
    'AREA BASE COL COLGROUP HEAD LINK MAP META PARAM SCRIPT STYLE TEMPLATE TITLE'.split(' '));
const kPreformatted = new Set(['PRE', 'XMP', 'LISTING', 'PLAINTEXT']);
const kObject = '\uFFFC';

const isBlock = (node) => node instanceof Element && kBlocks.has(upperName(node));
function blockOf(node) {
    let block = node;
    while (block !== document.body && block.parentNode !== null && !isBlock(block)) {
        block = block.parentNode;
    }
    return block;
}

// A mark is a piece of the text with its place in the tree: a stretch of a text node (`offset` is
// where it begins there), an object or line break (kWhole), or an empty block (kEmpty).
const kWhole = -1;
const kEmpty = -2;

class TextMap {
    constructor(body) {
        this.marks = [];         // {start, length, node, offset}, in order
        this.first = new Map();  // text node -> its first mark
        this.parts = [];
        this.length = 0;
        this.isBreakDue = false;
        this.isLineEmpty = true;
        this.blank = null;  // a blank that is shown only if something follows in its line
        this.addChildren(body, false);
        this.text = this.parts.join('');
        this.hasPairs = /[\uD800-\uDBFF]/.test(this.text);
        this.parts = null;
    }

    flushBreak() {
        if (!this.isBreakDue) return;
        this.isBreakDue = false;
        if (this.marks.length === 0) return;
        this.parts.push('\n');
        ++this.length;
        this.isLineEmpty = true;
        this.blank = null;
    }

    add(text, node, offset) {
        const last = this.marks[this.marks.length - 1];
        if (last && last.node === node && offset >= 0 && last.offset + last.length === offset &&
            last.start + last.length === this.length) {
            last.length += text.length;
        } else {
            if (!this.first.has(node)) this.first.set(node, this.marks.length);
            this.marks.push({start: this.length, length: text.length, node, offset});
        }
        this.parts.push(text);
        this.length += text.length;
    }

    flush() {
        this.flushBreak();
        if (this.blank !== null) this.add(' ', this.blank.node, this.blank.offset);
        this.blank = null;
    }

    addText(node) {
        const {data} = node;
        const blanks = /[ \t\n\r\f]+/g;
        let at = 0;
        while (at < data.length) {
            const found = blanks.exec(data);
            const end = found ? found.index : data.length;
            if (end > at) {
                this.flush();
                this.add(data.slice(at, end), node, at);
                this.isLineEmpty = false;
            }
            if (!found) break;
            if (!this.isBreakDue && !this.isLineEmpty && this.blank === null) {
                this.blank = {node, offset: end};
            }
            at = blanks.lastIndex;
        }
    }

    addPreformatted(node) {
        if (node.data === '') return;
        this.flush();
        this.add(node.data, node, 0);
        this.isLineEmpty = node.data.endsWith('\n');
    }

    addWhole(element, text) {
        if (text === '\n') this.blank = null;
        this.flush();
        this.add(text, element, kWhole);
        this.isLineEmpty = text === '\n';
    }

    addBlock(element, isPreformatted) {
        this.isBreakDue = true;
        const count = this.marks.length;
        this.addChildren(element, isPreformatted || kPreformatted.has(upperName(element)));
        if (this.marks.length === count) {
            this.isBreakDue = true;
            this.flushBreak();
            this.add('', element, kEmpty);
        }
        this.isBreakDue = true;
    }

    addElement(element, isPreformatted) {
        const name = upperName(element);
        if (kUnseen.has(name) || element === overlayHost) return;
        if (name === 'BR') return this.addWhole(element, '\n');
        if (!kObjects.has(name)) {
            if (kBlocks.has(name)) return this.addBlock(element, isPreformatted);
            return this.addChildren(element, isPreformatted);
        }
        if (name === 'HR') this.isBreakDue = true;
        this.addWhole(element, kObject);
        if (name === 'HR') this.isBreakDue = true;
    }

    addChildren(parent, isPreformatted) {
        for (let node = parent.firstChild; node !== null; node = node.nextSibling) {
            if (node.nodeType === Node.ELEMENT_NODE) {
                this.addElement(node, isPreformatted);
            } else if (node.nodeType === Node.TEXT_NODE) {
                if (isPreformatted) {
                    this.addPreformatted(node);
                } else {
                    this.addText(node);
                }
            }
        }
    }

    // ---- From a place in the tree to a position in the text

    positionInText(node, offset) {
        let at = this.first.get(node);
        let position = this.marks[at].start;
        for (; at < this.marks.length && this.marks[at].node === node; ++at) {
            const mark = this.marks[at];
            if (offset < mark.offset) return position;
            position = mark.start + Math.min(offset - mark.offset, mark.length);
            if (offset <= mark.offset + mark.length) return position;
        }
        return position;
    }

    // The first mark that stands at or after the place.
    markAfter(node, offset) {
        const child = node.nodeType === Node.TEXT_NODE ? node : node.childNodes[offset];
        const isAfter = (other) => {
            if (other === child) return true;
            const relation = (child || node).compareDocumentPosition(other);
            if (!(relation & Node.DOCUMENT_POSITION_FOLLOWING)) return false;
            return child || !(relation & Node.DOCUMENT_POSITION_CONTAINED_BY);
        };
        let low = 0;
        let high = this.marks.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (isAfter(this.marks[middle].node)) {
                high = middle;
            } else {
                low = middle + 1;
            }
        }
        return low;
    }

    position(node, offset) {
        if (node.nodeType === Node.TEXT_NODE && this.first.has(node)) {
            return this.positionInText(node, offset);
        }
        if (this.first.has(node) && this.marks[this.first.get(node)].offset === kEmpty) {
            return this.marks[this.first.get(node)].start;
        }
        const at = this.markAfter(node, offset);
        const next = this.marks[at];
        const previous = this.marks[at - 1];
        if (!previous) return next ? next.start : 0;
        const end = previous.start + previous.length;
        if (!next || next.start === end) return end;
        // A boundary lies between them: the place is on the side of its block.
        if (next.offset === kWhole && node.childNodes[offset] === next.node) return next.start;
        const block = blockOf(node);
        return block.contains(next.node) && !block.contains(previous.node) ? next.start : end;
    }

    // ---- And back

    markAt(position) {
        let low = 0;
        let high = this.marks.length;
        while (low < high) {
            const middle = (low + high) >> 1;
            if (this.marks[middle].start <= position) {
                low = middle + 1;
            } else {
                high = middle;
            }
        }
        return low - 1;
    }

    // Between two texts the place is at the end of the first, or, for what begins there
    // (`isStart`), at the start of the second.
    place(position, isStart = false) {
        let at = this.markAt(position);
        if (at < 0) return [document.body, 0];
        const previous = this.marks[at - 1];
        const isOneText = previous && previous.node === this.marks[at].node;
        if (!isStart && this.marks[at].start === position && previous && previous.offset >= 0 &&
            // Between the parts of one text lie blanks that are not shown.
            !isOneText &&
            previous.start + previous.length === position) {
            --at;
        }
        const {node, offset, start} = this.marks[at];
        if (offset >= 0) return [node, offset + position - start];
        if (offset === kEmpty) return [node, 0];
        const index = Array.prototype.indexOf.call(node.parentNode.childNodes, node);
        return [node.parentNode, position === start ? index : index + 1];
    }

    // ---- Characters

    // The position `count` characters from `position`, inside the text.
    advance(position, count) {
        if (!this.hasPairs) return Math.max(0, Math.min(this.text.length, position + count));
        let at = position;
        for (; count > 0 && at < this.text.length; --count) {
            at += this.text.codePointAt(at) > 0xFFFF ? 2 : 1;
        }
        for (; count < 0 && at > 0; ++count) {
            at -= at > 1 && this.text.codePointAt(at - 2) > 0xFFFF ? 2 : 1;
        }
        return at;
    }

    count(from, to) {
        if (!this.hasPairs) return to - from;
        if (to < from) return -this.count(to, from);
        let pairs = 0;
        for (let at = from; at < to; ++at) {
            if (this.text.codePointAt(at) > 0xFFFF) ++pairs;
        }
        return to - from - pairs;
    }
}

let mapOfVersion = -1;
let lastMap = null;
function textMap() {
    collectChanges();
    if (mapOfVersion !== version) {
        lastMap = new TextMap(document.body);
        mapOfVersion = version;
    }
    return lastMap;
}
