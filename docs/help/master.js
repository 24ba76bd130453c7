/*
 * Expanding sections: a link of the class "exsection" shows and hides the table that follows it,
 * and a click into the table hides it again. The project has a copy of this file of its own.
 *
 * The engine of the help viewer is an old one: nothing newer than ECMAScript 3 is used.
 */

/* Shows the section, or hides it again. Both arguments may be an element, several of one name,
   or an id as text. The image name 0 or "0" means that the section has no arrow. */
function ExpandSection(element, imageName) {
    var sections = SectionElements(element);
    /* The link leads nowhere: going there would only fill the list of visited pages. */
    if (window.event) window.event.returnValue = false;
    if (sections.length > 0) {
        SectionDisplay(sections, imageName, sections[0].style.display == "none");
    }
}

/* Hides the section. */
function ContractSection(element, imageName) {
    var sections = SectionElements(element);
    if (!SectionClickCounts(sections)) return;
    SectionDisplay(sections, imageName, false);
    /* A section that holds this one stays as it is. */
    if (window.event) window.event.cancelBubble = true;
}

function SectionDisplay(sections, imageName, shown) {
    var images = SectionElements(imageName);
    var i;
    for (i = 0; i < sections.length; i++) sections[i].style.display = shown ? "" : "none";
    for (i = 0; i < images.length; i++) SectionArrow(images[i], shown);
}

/* Turns the arrow. The folder of the image stays, and so does an image that is not ours. */
function SectionArrow(image, down) {
    var source = image.src;
    if (typeof source != "string") return;
    source = source.replace(/(^|[\/\\])(rtex|dwnex)\.gif$/i, "$1" + (down ? "dwnex" : "rtex") + ".gif");
    if (source != image.src) image.src = source;
}

/* The elements that are meant, as an array; an empty one when there are none. */
function SectionElements(what) {
    var found = [];
    var i;
    if (typeof what == "string") what = SectionElementNamed(what);
    if (!what) return found;
    if (what.style) {
        found[0] = what;
    } else if (what.length) {
        for (i = 0; i < what.length; i++) {
            if (what[i] && what[i].style) found[found.length] = what[i];
        }
    }
    return found;
}

function SectionElementNamed(name) {
    var element = null;
    /* A number would be taken for a position. */
    if (!isNaN(name)) return null;
    if (document.getElementById) element = document.getElementById(name);
    if (!element && document.all) element = document.all[name];
    return element || document.images[name];
}

/* Whether a click is meant for the section itself: neither for a link, a field or a button in
   it, nor the end of marking text. */
function SectionClickCounts(sections) {
    var clicked = window.event ? window.event.srcElement || window.event.target : null;
    if (!clicked || window.event.type != "click") return true;
    while (clicked && clicked != sections[0]) {
        if (clicked.href || /^(INPUT|SELECT|TEXTAREA|BUTTON|LABEL|OBJECT|EMBED)$/i.test(clicked.tagName)) {
            return false;
        }
        clicked = clicked.parentElement || clicked.parentNode;
    }
    if (window.getSelection) return String(window.getSelection()) == "";
    return !document.selection || document.selection.type != "Text";
}
