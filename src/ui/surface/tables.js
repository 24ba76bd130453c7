// The commands of tables. A table is looked at as a grid, in which a cell that spans rows or
// columns stands in several places.

const kMostCells = 100000;
const kMostSpan = 1000;

const spanOf = (cell, name) => Math.min(kMostSpan, Math.max(1, cell[name]));
const rowSpan = (cell) => spanOf(cell, 'rowSpan');
const columnSpan = (cell) => spanOf(cell, 'colSpan');

// A span of one is not written.
function setSpan(cell, name, count) {
    if (count > 1) {
        cell.setAttribute(name, count);
    } else {
        cell.removeAttribute(name);
    }
}

class Grid {
    constructor(table) {
        this.table = table;
        this.rows = Array.from(table.rows);
        this.places = this.rows.map(() => []);  // [row][column] -> cell
        this.origins = new Map();               // cell -> [row, column]
        this.rows.forEach((row, index) => this.addRow(row, index));
        this.width = Math.max(0, ...this.places.map((row) => row.length));
    }

    addRow(row, index) {
        let column = 0;
        for (const cell of row.cells) {
            while (this.places[index][column]) ++column;
            this.origins.set(cell, [index, column]);
            const end = Math.min(this.rows.length, index + rowSpan(cell));
            for (let r = index; r < end; ++r) {
                for (let c = 0; c < columnSpan(cell); ++c) this.places[r][column + c] = cell;
            }
            column += columnSpan(cell);
        }
    }

    at(row, column) { return (this.places[row] && this.places[row][column]) || null; }

    // The first cell of the row that begins there at the column or behind it.
    firstFrom(row, column) {
        const begins = (cell) => {
            const [r, c] = this.origins.get(cell);
            return r === row && c >= column;
        };
        return this.places[row].find((cell) => cell && begins(cell)) || null;
    }

    insertInRow(row, column, cell) {
        this.rows[row].insertBefore(cell, this.firstFrom(row, column));
    }

    // The rows and columns that hold the cells.
    frameOf(cells) {
        const frame = {top: Infinity, left: Infinity, bottom: 0, right: 0};
        for (const cell of cells) {
            const [row, column] = this.origins.get(cell);
            frame.top = Math.min(frame.top, row);
            frame.left = Math.min(frame.left, column);
            frame.bottom = Math.max(frame.bottom, Math.min(this.rows.length, row + rowSpan(cell)));
            frame.right = Math.max(frame.right, column + columnSpan(cell));
        }
        return frame;
    }

    cellsIn({top, left, bottom, right}) {
        const cells = new Set();
        for (let row = top; row < bottom; ++row) {
            for (let column = left; column < right; ++column) {
                if (this.at(row, column)) cells.add(this.at(row, column));
            }
        }
        return cells;
    }
}

// ---- What is selected

const cellAt = (node) => contextElement(node).closest('td,th');

// The cells of one table that the selection touches; empty outside of tables.
function selectedCells() {
    const range = currentRange();
    const first = cellAt(range.startContainer);
    if (range.collapsed || (first && first.contains(range.endContainer)))
        return first ? [first] : [];
    const around = contextElement(range.commonAncestorContainer);
    const table = around.closest('table') || around.querySelector('table');
    if (table === null) return [];
    const holds = (cell) => {
        const inside = wholeRange(cell);
        return range.compareBoundaryPoints(Range.START_TO_END, inside) > 0 &&
            range.compareBoundaryPoints(Range.END_TO_START, inside) < 0;
    };
    return Array.from(table.rows).flatMap((row) => Array.from(row.cells)).filter(holds);
}

const gridOf = (cells) => new Grid(cells[0].closest('table'));

function newCell(like) {
    const cell = document.createElement(like ? like.localName : 'td');
    cell.append(document.createElement('br'));
    return cell;
}

function caretInto(cell) {
    if (!cell) return;
    const range = wholeRange(cell);
    range.collapse(true);
    selectRange(range);
}

function removeTable(table) {
    const place = document.createRange();
    place.selectNode(table);
    place.collapse(true);
    table.remove();
    selectRange(place);
}

// ---- Rows and columns

// Below the selected cells.
function insertRow(grid, index) {
    const row = document.createElement('tr');
    for (let column = 0; column < grid.width; ++column) {
        const above = grid.at(index, column);
        const [top] = above ? grid.origins.get(above) : [index];
        if (above && top + rowSpan(above) > index + 1) {
            if (grid.at(index, column - 1) !== above) setSpan(above, 'rowspan', rowSpan(above) + 1);
            continue;
        }
        row.append(newCell(above));
    }
    grid.rows[index].after(row);
    return row;
}

function insertRowCommand(cells) {
    const grid = gridOf(cells);
    const row = insertRow(grid, grid.frameOf(cells).bottom - 1);
    caretInto(row.cells[0]);
}

// To the right of the selected cells.
function insertColumnCommand(cells) {
    const grid = gridOf(cells);
    const {right} = grid.frameOf(cells);
    const added = [];
    for (let row = 0; row < grid.rows.length; ++row) {
        const before = grid.at(row, right - 1);
        if (before && grid.at(row, right) === before) {
            const [top] = grid.origins.get(before);
            if (top === row) setSpan(before, 'colspan', columnSpan(before) + 1);
            continue;
        }
        const cell = newCell(before);
        grid.insertInRow(row, right, cell);
        added.push(cell);
    }
    caretInto(added[0]);
}

function deleteRows(cells) {
    const grid = gridOf(cells);
    const {top, bottom} = grid.frameOf(cells);
    if (bottom - top >= grid.rows.length) return removeTable(grid.table);
    for (const cell of grid.cellsIn({top, left: 0, bottom, right: grid.width})) {
        const [row, column] = grid.origins.get(cell);
        const end = row + rowSpan(cell);
        const inside = Math.min(end, bottom) - Math.max(row, top);
        if (row < top) {
            setSpan(cell, 'rowspan', rowSpan(cell) - inside);
        } else if (end > bottom) {
            setSpan(cell, 'rowspan', rowSpan(cell) - inside);
            grid.insertInRow(bottom, column, cell);
        }
    }
    grid.rows.slice(top, bottom).forEach((row) => row.remove());
    const left = new Grid(grid.table);
    caretInto(left.at(Math.min(top, left.rows.length - 1), 0));
}

function deleteColumns(cells) {
    const grid = gridOf(cells);
    const {left, right} = grid.frameOf(cells);
    if (right - left >= grid.width) return removeTable(grid.table);
    for (const cell of grid.cellsIn({top: 0, left, bottom: grid.rows.length, right})) {
        const [, column] = grid.origins.get(cell);
        const inside = Math.min(column + columnSpan(cell), right) - Math.max(column, left);
        if (inside === columnSpan(cell)) {
            cell.remove();
        } else {
            setSpan(cell, 'colspan', columnSpan(cell) - inside);
        }
    }
    caretInto(new Grid(grid.table).at(0, Math.max(0, left - 1)));
}

// ---- Cells

function insertCell(cells) {
    const last = cells[cells.length - 1];
    const cell = newCell(last);
    last.after(cell);
    caretInto(cell);
}

function deleteCells(cells) {
    const table = cells[0].closest('table');
    const rows = new Set(cells.map((cell) => cell.parentNode));
    cells.forEach((cell) => cell.remove());
    rows.forEach((row) => row.cells.length === 0 && row.remove());
    if (table.rows.length === 0) return removeTable(table);
    caretInto(table.rows[0].cells[0]);
}

// The frame around the cells, widened until no cell reaches out of it.
function wholeFrame(grid, cells) {
    let frame = grid.frameOf(cells);
    for (;;) {
        const wider = grid.frameOf(grid.cellsIn(frame));
        if (JSON.stringify(wider) === JSON.stringify(frame)) return frame;
        frame = wider;
    }
}

const isEmptyCell = (cell) => hasNothing(cell) ||
    (!/[^\s\u00A0]/.test(cell.textContent) && cell.querySelector('img,table,input,hr') === null);

function mergeCells(cells) {
    const grid = gridOf(cells);
    const frame = wholeFrame(grid, cells);
    const [first, ...others] = grid.cellsIn(frame);
    for (const cell of others) {
        if (!isEmptyCell(cell)) {
            if (isEmptyCell(first)) {
                first.replaceChildren();
            } else {
                first.append(document.createElement('br'));
            }
            first.append(...cell.childNodes);
        }
        cell.remove();
    }
    setSpan(first, 'rowspan', frame.bottom - frame.top);
    setSpan(first, 'colspan', frame.right - frame.left);
    first.removeAttribute('width');
    caretInto(first);
}

// A cell that spans is taken apart; another one is halved, and its column is spanned elsewhere.
function splitCell([cell]) {
    const grid = gridOf([cell]);
    const [row, column] = grid.origins.get(cell);
    const [height, width] = [rowSpan(cell), columnSpan(cell)];
    if (height === 1 && width === 1) {
        for (let r = 0; r < grid.rows.length; ++r) {
            const other = grid.at(r, column);
            if (!other || other === cell || grid.origins.get(other)[0] !== r) continue;
            setSpan(other, 'colspan', columnSpan(other) + 1);
        }
        cell.after(newCell(cell));
        return caretInto(cell);
    }
    setSpan(cell, 'rowspan', 1);
    setSpan(cell, 'colspan', 1);
    for (let r = row; r < Math.min(row + height, grid.rows.length); ++r) {
        for (let c = column; c < column + width; ++c) {
            if (r === row && c === column) continue;
            if (r === row) {
                grid.rows[r].insertBefore(newCell(cell), grid.firstFrom(r, column + width));
            } else {
                grid.insertInRow(r, column, newCell(cell));
            }
        }
    }
    caretInto(cell);
}

// ---- The whole table

// Attributes as text, on an element that is nowhere.
function elementWith(name, attributes) {
    const holder = document.implementation.createHTMLDocument('').createElement('template');
    holder.innerHTML = `<${name} ${attributes || ''}>`;
    const found = holder.content.firstElementChild;
    return found && found.localName === name ? document.importNode(found, false) :
                                               document.createElement(name);
}

function insertTable(wanted) {
    const {rows, columns} = wanted || {};
    if (!(rows >= 1 && columns >= 1 && rows * columns <= kMostCells)) throw new Refusal(5);
    const table = elementWith('table', wanted.tableAttributes);
    const cell = elementWith('td', wanted.cellAttributes);
    cell.append(document.createElement('br'));
    const body = document.createElement('tbody');
    for (let r = 0; r < rows; ++r) {
        const row = document.createElement('tr');
        for (let c = 0; c < columns; ++c) row.append(cell.cloneNode(true));
        body.append(row);
    }
    table.append(body);
    insertAtSelection(fragmentWith(table));
    // There must be a place behind it to go on writing.
    if (beside(table, 'nextSibling') === null && table.parentNode === document.body) {
        const paragraph = document.createElement('p');
        paragraph.append(document.createElement('br'));
        table.after(paragraph);
    }
    caretInto(table.rows[0].cells[0]);
}

const isInCell = () => isEditing() && control === null && selectedCells().length > 0;
const defineForCells = (number, run) =>
    define(number, () => enabledIf(isInCell()), () => run(selectedCells()));

defineForCells(5005, deleteCells);
defineForCells(5006, deleteColumns);
defineForCells(5007, deleteRows);
defineForCells(5019, insertCell);
defineForCells(5020, insertColumnCommand);
defineForCells(5021, insertRowCommand);
define(5022, canEditText, insertTable);
define(
    5029, () => enabledIf(isEditing() && control === null && selectedCells().length > 1),
    () => mergeCells(selectedCells()));
defineForCells(5047, splitCell);
