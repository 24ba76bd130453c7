// Makes the document ready for editing.

// The text of the document before anything of ours touches it.
const base = documentHTML();
calls.base = () => base;
// Null while the program has this version already.
calls.html = (known) => {
    collectChanges();
    return known === version ? null : documentHTML();
};

const sheets = {};
function showSheet(name, css) {
    if (!sheets[name]) sheets[name] = new CSSStyleSheet();
    sheets[name].replaceSync(css);
    document.adoptedStyleSheets = Object.values(sheets);
}

function applyView(view) {
    document.designMode = view.browse ? 'off' : 'on';
    document.execCommand('styleWithCSS', false, false);
    document.execCommand('defaultParagraphSeparator', false, 'p');
}
calls.view = applyView;

applyView(setup.view);
if (document.body !== null && getSelection().rangeCount === 0) {
    getSelection().collapse(...textMap().place(0));
}
lastSelection = savedSelection();
observe();
post('ready');
