// Copying, pasting and dropping. What goes out has addresses that mean something elsewhere; what
// comes in loses all that could act, and its addresses become relative to the topic.

// What was copied last from a topic, here or before this load: {html, raw, path}. `html` is what
// the clipboard got; when it comes back, `raw`, which is as it was written, takes its place.
let {copied} = setup;

// ---- Addresses

const kAddresses = ['src', 'href', 'background'];
const kTopicOrigin = 'quorrel://topic';

function urlOf(value, base) {
    try {
        return new URL(value, base);
    } catch (failure) {
        return null;
    }
}

const isOfTopics = (url) => url !== null && url.protocol === 'quorrel:' && url.host === 'topic';

// "file:///home/u/a.htm" for "quorrel://topic/Z:/home/u/a.htm".
function fileAddress(value) {
    if (value.startsWith('#')) return value;
    const url = urlOf(value.replaceAll('\\', '/'), document.baseURI);
    if (!isOfTopics(url)) return value;
    const root = `/${setup.root}`;
    const hasRoot =
        setup.root !== '' && url.pathname.toUpperCase().startsWith(`${root}/`.toUpperCase());
    return `file://${hasRoot ? url.pathname.slice(root.length) : url.pathname}${url.hash}`;
}

// The path of a file or topic address as topics have it; null for another address.
function topicPath(url) {
    if (isOfTopics(url)) return url.pathname;
    if (url === null || url.protocol !== 'file:' || url.host !== '') return null;
    return /^\/[A-Za-z]:/.test(url.pathname) || setup.root === '' ? url.pathname :
                                                                    `/${setup.root}${url.pathname}`;
}

function relativePath(path, from) {
    const target = path.split('/');
    const base = from.split('/');
    const isSame = (a, b) =>
        decodeURIComponent(a).toUpperCase() === decodeURIComponent(b).toUpperCase();
    let shared = 0;
    while (shared < base.length - 1 && shared < target.length - 1 &&
           isSame(target[shared], base[shared])) {
        ++shared;
    }
    if (shared < 2) return null;  // another drive
    return '../'.repeat(base.length - 1 - shared) + target.slice(shared).join('/');
}

// The address relative to this topic where it is one of a file; `from` is where it stood.
function ownAddress(value, from) {
    if (value.startsWith('#')) return value;
    const url = urlOf(value.replaceAll('\\', '/'), from);
    const path = topicPath(url);
    if (path === null) return value;
    const here = location.pathname;
    if (path === here && url.hash !== '') return url.hash;
    const relative = relativePath(path, here);
    if (relative === null) return value;
    try {
        return decodeURI(relative) + url.hash;
    } catch (failure) {
        return relative + url.hash;
    }
}

function mapAddresses(fragment, map) {
    for (const name of kAddresses) {
        for (const element of fragment.querySelectorAll(`[${name}]`)) {
            element.setAttribute(name, map(element.getAttribute(name)));
        }
    }
}

// ---- Out

const kKeptAround = new Set('TABLE TBODY THEAD TFOOT TR UL OL DL DIR MENU PRE'.split(' '));

// The selected content with the formats and lists that it stands in.
function selectedFragment() {
    if (control !== null) return fragmentWith(control.cloneNode(true));
    const range = currentRange();
    const fragment = range.cloneContents();
    let around = contextElement(range.commonAncestorContainer);
    while (around !== document.body && around !== null &&
           (!isBlock(around) || kKeptAround.has(upperName(around)))) {
        const shell = around.cloneNode(false);
        shell.append(...fragment.childNodes);
        fragment.append(shell);
        around = around.parentElement;
    }
    return fragment;
}

function fragmentHTML(fragment) {
    return unmask(Array.from(fragment.childNodes, childHTML).join(''));
}

// Gives {html, text}, and keeps them.
function copySelection() {
    const fragment = selectedFragment();
    const raw = fragmentHTML(fragment);
    mapAddresses(fragment, fileAddress);
    const text = control !== null ? '' : rangeText(currentRange());
    copied = {html: fragmentHTML(fragment), raw, path: location.pathname};
    post('copied', {copied});
    return {html: copied.html, text};
}

function cutSelection() {
    const data = copySelection();
    runStep('command', deleteSelection);
    return data;
}

const canCopy = () => enabledIf(document.body !== null && isSomethingSelected());
define(5002, canCopy, copySelection, false);
define(5003, () => enabledIf(isEditing() && isSomethingSelected()), cutSelection, false);

function putOnClipboard(event, data) {
    event.preventDefault();
    event.clipboardData.setData('text/html', data.html);
    event.clipboardData.setData('text/plain', data.text);
}

document.addEventListener('copy', (event) => {
    if (isSomethingSelected()) putOnClipboard(event, copySelection());
}, true);
document.addEventListener('cut', (event) => {
    event.preventDefault();
    if (isEditing() && isSomethingSelected()) putOnClipboard(event, cutSelection());
}, true);

// ---- In

const kDropped = 'script,style,link,meta,base,title,iframe,frame,frameset,noframes,object,embed,' +
    'applet,noscript,template,svg,math,audio,video,canvas,form > input[type=hidden]';
const kUnwrapped = 'html,head,body,form,portal';
const kActing = /^(?:on|srcset$|ping$|formaction$|action$|srcdoc$|xmlns|data-locked$)/i;
const kSafeProtocols =
    new Set(['http:', 'https:', 'mailto:', 'ftp:', 'news:', 'file:', 'quorrel:']);

function isSafeAddress(name, value) {
    const text = value.replace(/[\u0000-\u0020]/g, '');
    if (!/^[a-z][a-z0-9+.-]*:/i.test(text) || /^[a-z]:/i.test(text)) return true;
    if (/^data:image\/(?:png|gif|jpeg|webp|bmp)[;,]/i.test(text)) return name === 'src';
    const url = urlOf(text);
    return url !== null && kSafeProtocols.has(url.protocol);
}

function cleanAttributes(element) {
    for (const {name, value} of Array.from(element.attributes)) {
        const isAddress =
            kAddresses.includes(name) || name.endsWith(':href') || name === 'longdesc';
        const isOffice = (name === 'class' && /^Mso/i.test(value)) ||
            (name === 'style' && /mso-|url\(|expression|@import/i.test(value));
        if (kActing.test(name) || isOffice || (isAddress && !isSafeAddress(name, value))) {
            element.removeAttribute(name);
        }
    }
}

// Content from elsewhere, without all that could act. It is parsed where nothing loads.
function cleanFragment(html) {
    const foreign = new DOMParser().parseFromString(html, 'text/html');
    foreign.querySelectorAll(kDropped).forEach((element) => element.remove());
    const walker = foreign.createTreeWalker(foreign, NodeFilter.SHOW_COMMENT);
    const comments = [];
    while (walker.nextNode()) comments.push(walker.currentNode);
    comments.forEach((comment) => comment.remove());
    for (const element of foreign.body.querySelectorAll('*')) {
        const isOffice = element.localName.includes(':');
        if (isOffice || element.matches(kUnwrapped)) {
            unwrap(element);
        } else {
            cleanAttributes(element);
        }
    }
    const fragment = document.createDocumentFragment();
    fragment.append(
        ...Array.from(foreign.body.childNodes, (node) => document.importNode(node, true)));
    mapAddresses(fragment, (value) => ownAddress(value));
    return fragment;
}

// What was copied from a topic comes back as it was written.
function ownFragment() {
    const fragment = parseFragment(copied.raw, document.body);
    const folder = (path) => path.slice(0, path.lastIndexOf('/')).toUpperCase();
    if (folder(copied.path) !== folder(location.pathname)) {
        mapAddresses(fragment, (value) => ownAddress(value, kTopicOrigin + copied.path));
    }
    return fragment;
}

// Lines become breaks, empty lines paragraphs; blanks in a row are kept.
function textFragment(text) {
    const fragment = document.createDocumentFragment();
    const lines = text.replace(/\r\n?/g, '\n').replace(/\n$/, '').split('\n');
    const shown =
        lines.map((line) => line.replace(/^ | (?= )/g, '\u00A0').replace(/\t/g, kTabWidth));
    const addLines = (parent, group) => group.forEach((line, index) => {
        if (index > 0) parent.append(document.createElement('br'));
        if (line !== '') parent.append(line);
    });
    if (!/\n[ \t]*\n/.test(lines.join('\n'))) {
        addLines(fragment, shown);
        return fragment;
    }
    for (let group = []; shown.length > 0;) {
        const line = shown.shift();
        if (/\S/.test(line)) group.push(line);
        if (group.length === 0 || (/\S/.test(line) && shown.length > 0)) continue;
        const paragraph = document.createElement('p');
        addLines(paragraph, group);
        fragment.append(paragraph);
        group = [];
    }
    return fragment;
}

const kImageName = /\.(?:png|gif|jpe?g|bmp|webp|svg|ico|wmf)$/i;

function filesFragment(addresses) {
    const fragment = document.createDocumentFragment();
    for (const address of addresses) {
        const own = ownAddress(address);
        const isImage = kImageName.test(own);
        const element = document.createElement(isImage ? 'img' : 'a');
        element.setAttribute(isImage ? 'src' : 'href', own);
        if (!isImage) element.append(own.slice(own.lastIndexOf('/') + 1));
        fragment.append(element);
    }
    return fragment;
}

// A single paragraph goes into the one where it is pasted.
function unpacked(fragment) {
    const nodes = Array.from(fragment.childNodes).filter((node) => !isBlank(node));
    if (nodes.length === 1 && /^(P|DIV)$/.test(nodes[0].nodeName) && !holdsBlocks(nodes[0])) {
        fragment.replaceChildren(...nodes[0].childNodes);
    }
    return fragment;
}

// Takes {html, text, files, plain}: what there is of it.
function fragmentOf({html, text, files, plain}) {
    if (html && !plain) {
        const isOwn = copied !== null && html.includes(copied.html) && copied.html !== '';
        return unpacked(isOwn ? ownFragment() : cleanFragment(html));
    }
    if (files && files.length > 0 && !plain) return filesFragment(files);
    return text ? textFragment(text) : null;
}

function pasteData(data) {
    if (!isEditing()) throw new Refusal(445);
    const fragment = fragmentOf(data);
    if (fragment !== null) runStep('command', () => insertAtSelection(fragment));
}
calls.paste = pasteData;

let isPlainWanted = false;
document.addEventListener('paste', (event) => {
    event.preventDefault();
    if (!isEditing()) return;
    const plain = isPlainWanted;
    isPlainWanted = false;
    const html = event.clipboardData.getData('text/html');
    const text = event.clipboardData.getData('text/plain');
    if (html === '' && event.clipboardData.types.includes('Files')) {
        post('pasteFiles');
    } else {
        pasteData({html, text, plain});
    }
}, true);

// ---- Drops

function rangeAt(x, y) {
    const range = document.caretRangeFromPoint(x, y);
    return range !== null && document.body.contains(range.startContainer) ? range : null;
}

function moveSelection(target, isCopy) {
    const range = currentRange();
    if (range.isPointInRange(target.startContainer, target.startOffset) && !isCopy) return;
    const fragment = parseFragment(fragmentHTML(selectedFragment()), document.body);
    runStep('command', () => {
        if (!isCopy) deleteSelection();
        insertFragment(target, unpacked(fragment));
        selectRange(target);
    });
}

// `own` is "move" or "copy" where the selection itself was dragged.
calls.drop = (x, y, data, own) => {
    if (!isEditing()) throw new Refusal(445);
    const target = rangeAt(x, y) || currentRange();
    if (own) return moveSelection(target, own === 'copy');
    selectRange(target);
    pasteData(data);
};
// A drop that the program takes itself goes where the caret is then.
calls.caretTo = (x, y) => {
    const target = rangeAt(x, y);
    if (target !== null) selectRange(target);
};
