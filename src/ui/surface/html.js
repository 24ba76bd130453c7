// HTML as text: of the whole document, and with element names in upper case.

const kVoidElements = new Set(
    ('AREA BASE BASEFONT BGSOUND BR COL EMBED FRAME HR IMG INPUT KEYGEN LINK META PARAM SOURCE ' +
     'TRACK WBR')
        .split(' '));
const kRawElements = new Set('SCRIPT STYLE XMP IFRAME NOEMBED NOFRAMES PLAINTEXT'.split(' '));
const kLosesFirstBreak = new Set(['PRE', 'TEXTAREA', 'LISTING']);

const kEscapes = {
    '&': '&amp;',
    '<': '&lt;',
    '>': '&gt;',
    '"': '&quot;',
    '\u00A0': '&nbsp;'
};
const escapeText = (text) => text.replace(/[&<>\u00A0]/g, (c) => kEscapes[c]);
const escapeValue = (text) => text.replace(/[&"\u00A0]/g, (c) => kEscapes[c]);

// "<!OBJECT ...>", "<!- begin expanding section ->", "<![if ...]>" and "<?...?>" are comments to
// the engine: what stands in them tells what they were.
const kDeclarations = '/?OBJECT\\b[^>]*|- (?:begin|end) expanding section -|\\[[^>]*\\]';
const kDeclaration = new RegExp(`^(?:${kDeclarations})$`);
const kMaskedComments = new RegExp(`<!--(?:(${kDeclarations})|(\\?[^>]*))-->`, 'g');

function commentHTML(data) {
    if (kDeclaration.test(data)) return `<!${data}>`;
    return /^\?[^>]*$/.test(data) ? `<${data}>` : `<!--${data}-->`;
}
const unmask = (html) => html.replace(
    kMaskedComments,
    (all, declaration, instruction) =>
        declaration !== undefined ? `<!${declaration}>` : `<${instruction}>`);

// ---- The whole document, in the engine's own form

const startTag = (element) => element.cloneNode(false).outerHTML.replace(/<\/[^<]*>$/, '');

function doctypeHTML(type) {
    let text = `<!DOCTYPE ${type.name}`;
    if (type.publicId) text += ` PUBLIC "${type.publicId}"`;
    if (type.systemId) text += type.publicId ? ` "${type.systemId}"` : ` SYSTEM "${type.systemId}"`;
    return `${text}>`;
}

function childHTML(node) {
    switch (node.nodeType) {
        case Node.ELEMENT_NODE:
            return node === overlayHost ? '' : node.outerHTML;
        case Node.TEXT_NODE:
            return escapeText(node.data);
        case Node.COMMENT_NODE:
            return `<!--${node.data}-->`;
        case Node.DOCUMENT_TYPE_NODE:
            return doctypeHTML(node);
        default:
            return '';
    }
}

function documentHTML() {
    const parts = [];
    for (const node of document.childNodes) {
        if (node !== document.documentElement) {
            parts.push(childHTML(node));
            continue;
        }
        parts.push(
            startTag(node), ...Array.from(node.childNodes, childHTML), `</${node.localName}>`);
    }
    return unmask(parts.join(''));
}

// ---- With element names in upper case

const upperName = (element) => element.tagName.toUpperCase();

function upperStart(element) {
    let text = `<${upperName(element)}`;
    for (const {name, value} of element.attributes) text += ` ${name}="${escapeValue(value)}"`;
    return `${text}>`;
}

function upperElement(element) {
    const name = upperName(element);
    if (kVoidElements.has(name)) return upperStart(element);
    const content = upperInner(element);
    const lost = kLosesFirstBreak.has(name) && content.startsWith('\n') ? '\n' : '';
    return `${upperStart(element)}${lost}${content}</${name}>`;
}

function upperNode(node) {
    switch (node.nodeType) {
        case Node.ELEMENT_NODE:
            return node === overlayHost ? '' : upperElement(node);
        case Node.TEXT_NODE: {
            const parent = node.parentNode;
            const isRaw = parent instanceof Element && kRawElements.has(upperName(parent));
            return isRaw ? node.data : escapeText(node.data);
        }
        case Node.COMMENT_NODE:
            return commentHTML(node.data);
        default:
            return '';
    }
}

const upperInner = (parent) =>
    Array.from((parent.content || parent).childNodes, upperNode).join('');

// ---- From text

// Parsed as it would be inside `context`.
function parseFragment(html, context) {
    const range = wholeRange(context);
    return range.createContextualFragment(html);
}
