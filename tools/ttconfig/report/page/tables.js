
// A table that shows its first rows, and more on demand, so that a long one costs nothing until it is wanted.
//   columns   [{ name, kind }], kind "number", "text" or nothing
//   rows      anything; cells(row) makes the cells of a row, text(row) the text to search
//   state     "added", "removed", "changed" or nothing for a row; shown as a word in a column of its own
//   platform  the row's platform, null for any other; omitted when rows have no platform
function makeTable({ caption, columns, rows, cells, text, state, platform }) {
  const kPiece = 100;
  const marks = Boolean(state) && data.old !== null;
  const names = marks ? [{ name: 'change' }, ...columns] : columns;
  const body = el('tbody');
  const more = el('button', { type: 'button', class: 'more' });
  const note = el('p', { class: 'note', hidden: true }, 'No row fits the search.');
  const element = el('div', {}, el('div', { class: 'scroll' },
    el('table', {}, el('caption', {}, caption),
      el('thead', {}, el('tr', {}, ...names.map((column) => el('th', { scope: 'col', class: column.kind }, column.name)))), body)), note, more);
  let kept = rows;
  let count = 0;
  let texts = null;

  function makeRow(row) {
    const rowState = marks ? state(row) : '';
    const made = el('tr', { class: rowState || null });
    if (marks) made.append(el('td', {}, rowState ? el('span', { class: 'mark' }, 'Δ ' + rowState) : ''));
    cells(row).forEach((content, index) => {
      made.append(index === 0 ? el('th', { scope: 'row', class: columns[index].kind }, content)
                              : el('td', { class: columns[index].kind }, content));
    });
    return made;
  }

  function grow(by) {
    const piece = document.createDocumentFragment();
    const end = Math.min(kept.length, count + by);
    for (; count < end; ++count) piece.append(makeRow(kept[count]));
    body.append(piece);
    const left = kept.length - count;
    more.hidden = left === 0;
    more.textContent = `Show ${Math.min(left, 10 * kPiece).toLocaleString('en')} more of ${left.toLocaleString('en')}`;
  }

  more.addEventListener('click', () => {
    const at = count;
    grow(10 * kPiece);
    const link = body.children[at] && body.children[at].querySelector('a');
    if (link) link.focus();
  });

  function textOf(index) {
    if (!texts) texts = new Array(rows.length);
    if (texts[index] === undefined) texts[index] = text(rows[index]).toLowerCase();
    return texts[index];
  }

  function apply(filters) {
    kept = rows.filter((row, index) =>
      (!filters.changed || !marks || state(row)) &&
      (!platform || wantsPlatform(filters.platforms, platform(row))) &&
      (filters.words.length === 0 || holdsAll(textOf(index), filters.words)));
    count = 0;
    body.replaceChildren();
    grow(kPiece);
    note.hidden = kept.length > 0 || rows.length === 0;
    return { shown: kept.length, total: rows.length };
  }

  return { element, apply };
}

// How a value changed; empty when it did not, or when there is nothing to compare with.
function stateOf(now, before, line, oldLine) {
  if (data.old === null) return '';
  if (line && !oldLine && before === null) return 'added';
  if (!line && oldLine && now === null) return 'removed';
  return same(now, before) ? '' : 'changed';
}

// A value, followed by the previous value if that differs.
function valueCell(now, before) {
  if (data.old === null || same(now, before)) return shown(now === null ? '' : now);
  const was = before === null ? 'nothing' : shown(before);
  return el('span', {}, now === null ? 'nothing' : shown(now), el('span', { class: 'mark' }, ' (was ' + was + ')'));
}

// --- the topics that are tables

function scalarTable() {
  return makeTable({
    caption: 'One value for the whole client. A value that is not in the file is the built-in one.',
    columns: [{ name: 'key' }, { name: 'value', kind: 'text' }, { name: 'from' }, { name: 'meaning', kind: 'text' }, { name: 'line', kind: 'number' }],
    rows: data.scalars,
    cells: (row) => [el('span', { class: 'code' }, row.key), valueCell(row.value, row.oldValue), row.given ? 'file' : 'built-in',
      row.meaning + (row.feeds ? '' : ' (answers no question)'), lineLinks(row.line, row.oldLine)],
    text: (row) => [row.key, row.section, shown(row.value), row.meaning, row.feeds].join(' '),
    state: (row) => (data.old !== null && !same(row.value, row.oldValue) ? 'changed' : ''),
  });
}

// A row for each platform that a key names in either file, and one for all others.
function valueRows() {
  const rows = [];
  for (const key of data.values) {
    const old = key.old;
    const now = new Map(key.entries);
    const before = new Map(old ? old.entries : []);
    const oldDefault = old ? old.default : null;
    rows.push({ key, platform: null, value: key.default, before: oldDefault, special: false, from: key.given ? 'file' : 'built-in' });
    for (const platform of [...new Set([...now.keys(), ...before.keys()])].sort((left, right) => left - right)) {
      const value = now.has(platform) ? now.get(platform) : key.default;
      rows.push({
        key, platform, value, before: old && before.has(platform) ? before.get(platform) : oldDefault,
        special: !same(value, key.default), from: now.has(platform) ? 'file' : 'others',
      });
    }
  }
  return rows;
}

function valueTable() {
  return makeTable({
    caption: 'Values that a platform can have of its own, and the default of the platforms that are not named.',
    columns: [{ name: 'key' }, { name: 'platform', kind: 'number' }, { name: 'value' }, { name: 'default' }, { name: 'from' },
      { name: 'meaning', kind: 'text' }, { name: 'line', kind: 'number' }],
    rows: valueRows(),
    cells: (row) => [el('span', { class: 'code' }, row.key.key), row.platform === null ? 'any other' : String(row.platform),
      valueCell(row.value, data.old === null ? row.value : row.before),
      row.platform === null ? '' : row.special ? el('strong', {}, '≠ ' + shown(row.key.default)) : '= ' + shown(row.key.default),
      row.from, row.platform === null ? row.key.meaning : '', lineLinks(row.key.line, row.key.old ? row.key.old.line : 0)],
    text: (row) => [row.key.key, row.key.meaning, row.key.feeds, row.platform === null ? 'any other' : row.platform].join(' '),
    state: (row) => (data.old !== null && !same(row.value, row.before) ? 'changed' : ''),
    platform: (row) => row.platform,
  });
}

// Rows are [market, item, values, line, values before, line before].
function limitTable(table) {
  const [market, item, values, line, oldValues, oldLine] = [0, 1, 2, 3, 4, 5];
  const either = (row) => row[values] || row[oldValues];
  const before = (row, index) => (row[oldValues] ? row[oldValues][index] : null);
  return makeTable({
    caption: table.about,
    columns: [{ name: 'market' }, { name: 'item' }, ...table.columns.map((name) => ({ name, kind: 'number' })), { name: 'line', kind: 'number' }],
    rows: table.rows,
    cells: (row) => [row[market], row[item],
      ...either(row).map((value, index) => (row[values] && row[oldValues] ? valueCell(value, before(row, index)) : shown(value))),
      lineLinks(row[line], row[oldLine])],
    text: (row) => [row[market] + '-' + row[item], ...either(row), table.title].join(' '),
    state: (row) => stateOf(row[values], row[oldValues], row[line], row[oldLine]),
  });
}

// Rows are [section, key, value, line, value before, line before].
function otherTable() {
  return makeTable({
    caption: 'What else the file gives that the client reads, as it is written there.',
    columns: [{ name: 'section' }, { name: 'key' }, { name: 'value', kind: 'text' }, { name: 'line', kind: 'number' }],
    rows: data.others,
    cells: (row) => [row[0], el('span', { class: 'code' }, row[1]), valueCell(row[2], data.old === null ? row[2] : row[4]),
      lineLinks(row[3], row[5])],
    text: (row) => row.slice(0, 3).join(' '),
    state: (row) => stateOf(row[2], row[4], row[3], row[5]),
  });
}

// Rows are [severity, rule, line, column, message, related line].
function findingTable() {
  const words = ['note', 'warning', 'error'];
  const signs = ['•', '▲', '✖'];
  return makeTable({
    caption: 'Where the file says something else than its author will have meant.',
    columns: [{ name: 'severity' }, { name: 'line', kind: 'number' }, { name: 'column', kind: 'number' }, { name: 'message', kind: 'text' },
      { name: 'see also', kind: 'number' }, { name: 'rule' }],
    rows: data.findings.list,
    cells: (row) => [el('span', { class: 'severity ' + words[row[0]] }, signs[row[0]] + ' ' + words[row[0]]), lineLink(row[2]), row[3] || '',
      row[4], lineLink(row[5]), el('span', { class: 'code' }, row[1])],
    text: (row) => [words[row[0]], row[1], row[4], 'line ' + row[2]].join(' '),
  });
}

// Rows are [subject, question, before, after, old line, new line].
function changeTable() {
  return makeTable({
    caption: 'Answers that are other ones than with the older file.',
    columns: [{ name: 'subject' }, { name: 'question' }, { name: 'before', kind: 'text' }, { name: 'after', kind: 'text' }, { name: 'line', kind: 'number' }],
    rows: data.changes.list,
    cells: (row) => [row[0], el('span', { class: 'code' }, row[1]), shown(row[2]), shown(row[3]), lineLinks(row[5], row[4])],
    text: (row) => row.slice(0, 4).map(shown).join(' '),
  });
}
