// Typing into very long documents. After each change the engine collects all the text of what can
// be edited, which for megabytes takes half a second a key. So while a paragraph of such a document
// is typed into, nothing but that paragraph can be edited; whatever else the user does makes the
// whole document editable first.

const kLongDocument = 500000;  // characters of HTML

let isLong = false;
let narrowed = null;
const narrowSheet = new CSSStyleSheet();

function selectorOf(element) {
    const steps = [];
    for (let node = element; node !== document.body; node = node.parentElement) {
        steps.unshift(`${node.localName}:nth-child(${indexAmongElements(node)})`);
    }
    return ['body', ...steps].join(' > ');
}

function indexAmongElements(element) {
    let index = 1;
    for (let node = element; node.previousElementSibling !== null; ++index) {
        node = node.previousElementSibling;
    }
    return index;
}

function narrowTo(block) {
    if (narrowed === block) return;
    narrowed = block;
    narrowSheet.replaceSync(`body { -webkit-user-modify: read-only }
        ${selectorOf(block)} { -webkit-user-modify: read-write; outline: none }`);
    // A part that alone can be edited gets the keys only with the focus on it.
    block.focus({preventScroll: true});
}

function widen() {
    if (narrowed === null) return;
    narrowed = null;
    narrowSheet.replaceSync('');
}

// Whether the caret has text of its block on the side to which the key deletes.
function hasTextBeside(range, block, isForward) {
    const rest = document.createRange();
    rest.selectNodeContents(block);
    if (isForward) {
        rest.setStart(range.endContainer, range.endOffset);
    } else {
        rest.setEnd(range.startContainer, range.startOffset);
    }
    return /\S\s*\S/.test(rest.toString());
}

// The paragraph that the key types into; null where it may do more than type.
function typedBlock(event) {
    if (event.ctrlKey || event.metaKey || event.altKey || control !== null) return null;
    const range = currentRange();
    const block = blockOf(range.startContainer);
    if (block === document.body || !block.contains(range.endContainer)) return null;
    if (event.key.length === 1 || event.key === 'Process') return block;
    const isForward = event.key === 'Delete';
    if (!isForward && event.key !== 'Backspace') return null;
    return range.collapsed && hasTextBeside(range, block, isForward) ? block : null;
}

function narrowFor(event) {
    if (!isLong || !isEditing() || /^(?:Shift|Control|Alt|Meta|CapsLock)$/.test(event.key)) return;
    const block = typedBlock(event);
    if (block === null || block.querySelector(kBlockSelector) !== null) {
        widen();
    } else {
        narrowTo(block);
    }
}
const kBlockSelector = 'p,div,table,ul,ol,dl,pre,h1,h2,h3,h4,h5,h6,blockquote';

document.addEventListener('keydown', narrowFor, true);
document.addEventListener('mousedown', widen, true);
