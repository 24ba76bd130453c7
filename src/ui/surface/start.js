// Makes the document ready for editing.

// The text of the document before anything of ours touches it.
const base = documentHTML();
isLong = base.length > kLongDocument;
calls.base = () => base;
// Null while the program has this version already.
calls.html = (known) => {
    collectChanges();
    return known === version ? null : documentHTML();
};
// For the program to keep, in case that this page dies: {base, html}, either null where the program
// has it already.
calls.copy = (known, wantsBase) => ({base: wantsBase ? base : null, html: calls.html(known)});

function applyView(wanted) {
    view = wanted;
    document.designMode = view.browse ? 'off' : 'on';
    if (view.browse) {
        if (control !== null) getSelection().collapseToStart();
        control = null;
        showSheets([]);
    } else {
        showSheets(['objects', ...['borders', 'details'].filter((name) => view[name])]);
    }
    drawSoon();
}
calls.view = applyView;

applyView(setup.view);
observe();
post('ready');
