
// The platform switches: one row per switch, one column per platform. Only the visible part is in the document. For
// assistive technology it is a data grid: the focus stays on the grid, which names its active cell.
function makeMatrix() {
  const kOn = 1;
  const kWasOn = 2;
  const kBeyond = 4;  // rows and columns drawn beyond the visible part
  const switches = data.switches;
  const platforms = [null, ...data.platforms];  // null: any other platform
  const compares = data.old !== null;

  // --- the states, one byte per cell

  const states = switches.map((row) => {
    const cells = new Uint8Array(platforms.length);
    const fill = (listed, bit) => {
      for (let column = 0; row.inverted && column < cells.length; ++column) cells[column] |= bit;
      for (const index of listed) cells[index + 1] = row.inverted ? cells[index + 1] & ~bit : cells[index + 1] | bit;
    };
    fill(row.listed, kOn);
    if (compares) fill(row.oldListed, kWasOn);
    return cells;
  });
  const texts = switches.map((row) => [row.predicate, row.key, row.meaning].join(' ').toLowerCase());
  const isOn = (row, column) => (states[row][column] & kOn) !== 0;
  const wasOn = (row, column) => (states[row][column] & kWasOn) !== 0;
  const flipped = (row, column) => compares && isOn(row, column) !== wasOn(row, column);
  const onOff = (on) => (on ? 'on' : 'off');

  // --- the elements

  const heads = el('div', { class: 'row heads', role: 'row', 'aria-rowindex': 1 });
  const rowsBox = el('div', { role: 'none' });
  const sizer = el('div', { class: 'sizer', role: 'none' }, heads, rowsBox);
  const grid = el('div', {
    class: 'matrix', role: 'grid', tabindex: 0, id: 'grid', 'aria-label': 'Platform switches', 'aria-readonly': 'true',
    'aria-describedby': 'gridHelp', 'aria-rowcount': 0, 'aria-colcount': 0,
  }, sizer);
  const told = el('p', { class: 'told', id: 'told', 'aria-live': 'polite' });
  const printed = el('div', { class: 'printed', id: 'printed' });

  let rows = switches.map((_, index) => index);
  let columns = platforms.map((_, index) => index);
  let active = { row: 0, column: 0 };  // among the rows and columns kept; column 0 is the switch itself
  let drawn = '';

  // --- sizes, in pixels

  const size = { row: 28, column: 44, name: 380 };
  function measure() {
    const em = parseFloat(getComputedStyle(document.documentElement).fontSize) || 16;
    const longest = data.platforms.reduce((most, platform) => Math.max(most, String(platform).length), 5);
    size.row = Math.round(1.75 * em);
    size.column = Math.round((0.7 + 0.44 * longest) * em);
    size.name = Math.round(Math.min(34 * em, Math.max(11 * em, grid.clientWidth * 0.36)));
    for (const [name, value] of Object.entries(size)) grid.style.setProperty('--' + name, value + 'px');
    sizer.style.width = size.name + columns.length * size.column + 'px';
    sizer.style.height = (rows.length + 1) * size.row + 'px';
    grid.style.height = `min(70vh, 46rem, ${(rows.length + 1) * size.row + 20}px)`;
  }

  // --- drawing

  const cellId = (row, column) => `cell-${row}-${column}`;

  function headCell(column) {
    const platform = platforms[columns[column]];
    return el('div', {
      class: 'cell', role: 'columnheader', 'aria-colindex': column + 2,
      title: platform === null ? 'any other platform' : 'platform ' + platform, 'aria-label': platform === null ? 'any other platform' : null,
    }, platform === null ? 'other' : String(platform));
  }

  function nameCell(row) {
    const { predicate, key, meaning, inverted } = switches[rows[row]];
    const text = `${predicate} (${key}): ${meaning}${inverted ? ' On for the platforms that are not listed.' : ''}`;
    return el('div', {
      class: 'name' + (active.row === row && active.column === 0 ? ' active' : ''), role: 'rowheader', 'aria-colindex': 1,
      id: cellId(row, 0), title: text, 'aria-description': meaning,
    }, predicate, el('span', { class: 'key' }, key));
  }

  function lineOf(row) {
    const { line, oldLine } = switches[row];
    return line ? '#L' + line : oldLine ? '#O' + oldLine : null;
  }

  function cell(row, column) {
    const [atRow, atColumn] = [rows[row], columns[column]];
    const on = isOn(atRow, atColumn);
    const flips = flipped(atRow, atColumn);
    const sign = flips ? (on ? '+●' : '−○') : on ? '●' : '·';
    const target = lineOf(atRow);
    const platform = platforms[atColumn];
    const label = `${platform === null ? 'any other platform' : 'platform ' + platform}: ${onOff(on)}${flips ? ', was ' + onOff(!on) : ''}`;
    return el('div', {
      class: 'cell' + (on ? ' on' : '') + (flips ? ' flipped' : '') + (active.row === row && active.column === column + 1 ? ' active' : ''),
      role: 'gridcell', 'aria-colindex': column + 2, id: cellId(row, column + 1), 'aria-label': label,
    }, target ? el('a', { href: target, tabindex: -1, 'aria-hidden': 'true' }, sign) : sign);
  }

  function gap(count) {
    const space = el('div', { class: 'gap', role: 'none' });
    space.style.width = count * size.column + 'px';
    return space;
  }

  function draw() {
    const bounds = (start, length, step, count) => [
      Math.max(0, Math.floor(start / step) - kBeyond), Math.min(count, Math.ceil((start + length) / step) + kBeyond)];
    const [top, bottom] = bounds(grid.scrollTop, grid.clientHeight || 700, size.row, rows.length);
    const [left, right] = bounds(grid.scrollLeft, grid.clientWidth || 1200, size.column, columns.length);
    const state = [top, bottom, left, right, active.row, active.column].join();
    if (state === drawn) return;
    drawn = state;
    const corner = el('div', { class: 'name', role: 'columnheader', 'aria-colindex': 1 }, 'switch');
    heads.replaceChildren(corner, gap(left));
    for (let column = left; column < right; ++column) heads.append(headCell(column));
    const fresh = document.createDocumentFragment();
    for (let row = top; row < bottom; ++row) {
      const flips = compares && columns.some((column) => flipped(rows[row], column));
      const made = el('div', { class: 'row' + (flips ? ' flips' : ''), role: 'row', 'aria-rowindex': row + 2 }, nameCell(row), gap(left));
      made.style.top = (row + 1) * size.row + 'px';
      for (let column = left; column < right; ++column) made.append(cell(row, column));
      fresh.append(made);
    }
    rowsBox.replaceChildren(fresh);
  }

  function redraw() {
    drawn = '';
    measure();
    draw();
  }

  let asked = false;
  function drawSoon() {
    if (asked) return;
    asked = true;
    requestAnimationFrame(() => { asked = false; draw(); });
  }

  // --- the active cell

  function tell() {
    if (rows.length === 0) { told.textContent = ''; return; }
    const at = rows[active.row];
    const { predicate, key, meaning, inverted, line, oldLine } = switches[at];
    const where = line ? `Line ${line}` : 'The key is not in the file';
    told.replaceChildren(el('strong', {}, predicate), ` (${key}${inverted ? ', on for platforms that are not listed' : ''}): ${meaning} `);
    if (active.column > 0) {
      const column = columns[active.column - 1];
      const platform = platforms[column];
      const was = flipped(at, column) ? `, was ${onOff(wasOn(at, column))}` : '';
      told.append(el('strong', {}, `${platform === null ? 'Any other platform' : 'Platform ' + platform}: ${onOff(isOn(at, column))}${was}`), '. ');
    }
    told.append(where + (oldLine ? `, older file: line ${oldLine}` : '') + '.');
  }

  function reveal() {
    const y = active.row * size.row;
    const height = grid.clientHeight - 2 * size.row;
    if (y < grid.scrollTop) grid.scrollTop = y;
    if (y > grid.scrollTop + height) grid.scrollTop = y - height;
    if (active.column === 0) return;
    const x = (active.column - 1) * size.column;
    const width = grid.clientWidth - size.name - size.column;
    if (x < grid.scrollLeft) grid.scrollLeft = x;
    if (x > grid.scrollLeft + width) grid.scrollLeft = x - width;
  }

  function activate(row, column) {
    active = {
      row: Math.max(0, Math.min(rows.length - 1, row)),
      column: Math.max(0, Math.min(columns.length, column)),
    };
    reveal();
    draw();
    if (rows.length) grid.setAttribute('aria-activedescendant', cellId(active.row, active.column));
    else grid.removeAttribute('aria-activedescendant');
    tell();
  }

  function pageRows() { return Math.max(1, Math.floor(grid.clientHeight / size.row) - 2); }

  function onKey(event) {
    if (event.altKey || event.metaKey) return;
    const { row, column } = active;
    const moves = {
      ArrowUp: () => [row - 1, column], ArrowDown: () => [row + 1, column],
      ArrowLeft: () => [row, column - 1], ArrowRight: () => [row, column + 1],
      Home: () => [event.ctrlKey ? 0 : row, 0], End: () => [event.ctrlKey ? rows.length - 1 : row, columns.length],
      PageUp: () => [row - pageRows(), column], PageDown: () => [row + pageRows(), column],
    };
    if (moves[event.key] && (!event.ctrlKey || event.key === 'Home' || event.key === 'End')) {
      event.preventDefault();
      activate(...moves[event.key]());
    } else if ((event.key === 'Enter' || event.key === ' ') && rows.length) {
      event.preventDefault();
      const target = lineOf(rows[active.row]);
      if (target) goTo(target);
    }
  }

  grid.addEventListener('keydown', onKey);
  grid.addEventListener('scroll', drawSoon, { passive: true });
  grid.addEventListener('focus', () => activate(active.row, active.column));
  grid.addEventListener('mousedown', (event) => {
    const found = event.target.closest('[id^="cell-"]');
    if (!found) return;
    const [row, column] = found.id.split('-').slice(1).map(Number);
    active = { row, column };
    grid.setAttribute('aria-activedescendant', found.id);
    for (const other of grid.querySelectorAll('.active')) other.classList.remove('active');
    found.classList.add('active');
    tell();
  });
  new ResizeObserver(redraw).observe(grid);

  // --- filters

  function apply(filters) {
    columns = platforms.map((_, index) => index).filter((index) => wantsPlatform(filters.platforms, platforms[index]));
    const named = columns.filter((column) => platforms[column] !== null);
    rows = switches.map((_, index) => index).filter((row) =>
      holdsAll(texts[row], filters.words) &&
      (!filters.inUse || switches[row].listed.length > 0) &&
      (!filters.differing || named.some((column) => isOn(row, column) !== isOn(row, named[0]))) &&
      (!filters.changed || columns.some((column) => flipped(row, column))));
    if (filters.changed) columns = columns.filter((column) => rows.some((row) => flipped(row, column)));
    grid.setAttribute('aria-rowcount', rows.length + 1);
    grid.setAttribute('aria-colcount', columns.length + 1);
    active = { row: 0, column: Math.min(active.column, columns.length) };
    grid.scrollTop = 0;
    grid.scrollLeft = 0;
    redraw();
    grid.removeAttribute('aria-activedescendant');
    tell();
    return { shown: rows.length, total: switches.length, columns: columns.length, allColumns: platforms.length };
  }

  // --- on paper: one line per switch

  function print() {
    const listOf = (row) => columns.filter((column) => isOn(row, column)).map((column) => {
      const platform = platforms[column] === null ? 'any other' : platforms[column];
      return flipped(row, column) ? `${platform} (new)` : platform;
    });
    const goneOf = (row) => columns.filter((column) => flipped(row, column) && !isOn(row, column)).map((column) => platforms[column] ?? 'any other');
    printed.replaceChildren(el('table', {},
      el('caption', {}, 'The switches shown, and the platforms for which they are on'),
      el('thead', {}, el('tr', {}, ...['switch', 'key', 'on for', 'line'].map((name) => el('th', { scope: 'col' }, name)))),
      el('tbody', {}, ...rows.map((row) => el('tr', { class: columns.some((column) => flipped(row, column)) ? 'changed' : null },
        el('th', { scope: 'row' }, switches[row].predicate), el('td', {}, switches[row].key),
        el('td', { class: 'text' }, (listOf(row).join(', ') || 'none') + (goneOf(row).length ? '; no longer for ' + goneOf(row).join(', ') : '')),
        el('td', { class: 'number' }, switches[row].line ? String(switches[row].line) : ''))))));
  }
  addEventListener('beforeprint', print);

  const legend = el('p', { class: 'legend' }, el('span', {}, el('b', {}, '●'), ' on'), el('span', {}, el('b', {}, '·'), ' off'),
    ...(compares ? [el('span', {}, el('b', {}, '+●'), ' turned on'), el('span', {}, el('b', {}, '−○'), ' turned off'),
      el('span', {}, el('b', {}, 'Δ'), ' switch with changes')] : []),
    el('span', { id: 'gridHelp' }, 'Arrow keys, Home, End, Page Up and Page Down move; Enter shows the line.'));
  return { element: el('div', {}, legend, grid, told, printed), apply, redraw };
}
