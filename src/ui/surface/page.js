// The page's half of the editing surface. The files of this folder are put together into one
// function, which runs in a script world of its own when a document has been parsed; the page's
// own scripts never run. `setup` is what the program hands over:
//   token   what our messages begin with, so that nothing in a page can pass for one
//   load    the number of the load
//   marker  the text by which the program marks a place for a moment
//   root    what stands for the native root in a path ("Z:"), empty where there is none
//   copied  what was copied last from a topic: {html, raw, path}, or null
//   view    {browse, borders, details, grid}

// What the program may call, by name.
const calls = {};

// A failure that the program raises under its number.
class Refusal extends Error {
    constructor(number, text = '') {
        super(text);
        this.number = number;
    }
}

globalThis.quorrel = {
    load: setup.load,
    // Gives {result, version} or {error, text}. `released` are ids that the program has dropped.
    call(load, name, args, released) {
        if (load !== setup.load) return {error: 91, text: 'another document'};
        released.forEach((id) => objects.delete(id));
        isCalled = true;
        try {
            const result = calls[name](...args);
            collectChanges();
            return {result: result === undefined ? null : result, version};
        } catch (failure) {
            return {error: failure.number || 57, text: String(failure.message), version};
        } finally {
            isCalled = false;
        }
    },
};
let isCalled = false;

// Tells the program something.
function post(type, data = {}) {
    console.log(setup.token + JSON.stringify({type, load: setup.load, ...data}));
}

// The selection or the document has changed. One message for all that changes in one go. (Timers
// are off along with the page's scripts.)
let isDisplayDue = false;
function noteDisplay() {
    if (isDisplayDue) return;
    isDisplayDue = true;
    Promise.resolve().then(() => {
        isDisplayDue = false;
        post('display');
    });
}

const isEditing = () => document.designMode === 'on' && document.body !== null;

// Objects that the program holds, by id.
const objects = new Map();
let lastId = 0;
function keep(object) {
    if (object === null) return 0;
    objects.set(++lastId, object);
    return lastId;
}

// What we draw over the page hangs on this element, null while there is nothing to draw.
let overlayHost = null;

// How the program wants the page: {browse, borders, details, grid}.
let {view} = setup;

// Brings the version to the program.
calls.state = () => null;
