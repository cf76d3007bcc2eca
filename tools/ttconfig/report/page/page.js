
// --- putting the page together

const topics = [];  // { id, title, apply } for each searchable topic
const contents = byId('contents');
const main = byId('main');

function addSection(id, title, parts, ...notes) {
  const made = section(id, title, ...notes.filter(Boolean).map((note) => el('p', { class: 'note' }, note)), ...parts.map((part) => part.element));
  main.append(made);
  const count = el('span', { class: 'count' });
  contents.append(el('li', {}, el('a', { href: '#' + id }, title), ' ', count));
  topics.push({ id, title, count, parts: parts.filter((part) => part.apply) });
}

const leftOutNote = (count, what) => (count ? `${plural(count, what + ' is', what + 's are')} left out here: this page is kept to a size that opens.` : '');

// A topic with several tables, each under its own heading.
function titled(title, table, leftOut) {
  const note = leftOutNote(leftOut, 'row');
  return { element: el('div', {}, el('h3', {}, title), note ? el('p', { class: 'note' }, note) : null, table.element), apply: table.apply };
}

function fileText(file) {
  return `${file.name}, ${file.bytes.toLocaleString('en')} bytes in ${plural(file.lines, 'line', 'lines')}` + (file.date ? `, of ${file.date}` : '');
}

function addAbout() {
  const rows = [['Settings file', fileText(data.file)]];
  if (data.old) rows.push(['Compared with', fileText(data.old)]);
  if (data.platformData) rows.push(['Platform data', data.platformData]);
  rows.push(['Platforms named', data.platforms.length.toLocaleString('en')]);
  for (const [name, version] of Object.entries(data.versions)) rows.push([name, version]);
  byId('about').append(...rows.map(([name, value]) => el('div', {}, el('dt', {}, name), el('dd', {}, value))));
  byId('made').textContent = 'Everything on this page comes from the files named above. It needs no network and sends nothing.';
}

const matrix = makeMatrix();
const sources = {};

function addSource(letter, id, title, text, label) {
  sources[letter] = makeSource(text, letter, label);
  const back = el('button', { type: 'button' }, 'Back to where you were');
  back.addEventListener('click', () => history.back());
  main.append(section(id, title, el('p', {}, back), sources[letter].element));
  contents.append(el('li', {}, el('a', { href: '#' + id }, title)));
}

function addSections() {
  if (data.changes) {
    const none = data.changes.list.length === 0 ? 'No answer changes.' : '';
    addSection('changes', 'Changes', none ? [] : [changeTable()], none, leftOutNote(data.changes.leftOut, 'change'));
  }
  const clean = data.findings.list.length === 0 ? 'Nothing was found.' : '';
  addSection('switches', 'Platform switches', [matrix], leftOutNote(data.platformsLeftOut, 'platform'));
  addSection('findings', 'Findings', clean ? [] : [findingTable()], clean, leftOutNote(data.findings.leftOut, 'finding'));
  addSection('values', 'Values by platform', [valueTable()], leftOutNote(data.valuesLeftOut, 'value'));
  addSection('scalars', 'Single values', [scalarTable()]);
  const limits = data.limits.filter((table) => table.rows.length > 0);
  addSection('limits', 'Limits and rates', limits.map((table) => titled(table.title, limitTable(table), table.leftOut)),
    limits.length ? '' : 'The file has no rows of limits or rates.');
  addSection('sessions', 'Trading sessions', [makeSessions()]);
  if (data.others.length) addSection('others', 'Lists and catalogues', [otherTable()], leftOutNote(data.othersLeftOut, 'row'));
  addSource('L', 'source', 'The settings file', data.source, 'Text of ' + data.file.name);
  if (data.oldSource) addSource('O', 'oldSource', 'The older file', data.oldSource, 'Text of ' + data.old.name);
}

// --- search and filters

const fields = { search: byId('search'), platforms: byId('platforms') };
const ticks = { inUse: byId('inUse'), differing: byId('differing'), changed: byId('changed') };

function readFilters() {
  const filters = { words: wordsOf(fields.search.value), platforms: readPlatforms(fields.platforms.value) };
  for (const [name, box] of Object.entries(ticks)) filters[name] = box.checked;
  return filters;
}

function applyFilters() {
  const filters = readFilters();
  const told = [];
  for (const topic of topics) {
    let [count, total] = [0, 0];
    for (const part of topic.parts) {
      const result = part.apply(filters);
      count += result.shown;
      total += result.total;
      if (part === matrix) {
        told.push(`${result.shown} of ${plural(total, 'switch', 'switches')}`, `${result.columns} of ${plural(result.allColumns, 'column', 'columns')}`);
      }
    }
    topic.count.textContent = count === total ? `(${total.toLocaleString('en')})` : `(${count.toLocaleString('en')} of ${total.toLocaleString('en')})`;
  }
  const { unnamed = [], wrong = [] } = filters.platforms || {};
  if (unnamed.length) told.push(`the file does not name ${unnamed.join(', ')}: see “other”`);
  if (wrong.length) told.push(`no platform ID: ${wrong.join(', ')}`);
  byId('counts').textContent = told.join('; ');
}

function clearFilters() {
  for (const field of Object.values(fields)) field.value = '';
  for (const box of Object.values(ticks)) box.checked = false;
  applyFilters();
}

const isFiltered = () => Object.values(fields).some((field) => field.value) || Object.values(ticks).some((box) => box.checked);

// --- going to a line

let cameFrom = null;

function showLine() {
  const target = /^#([LO])(\d+)$/.exec(location.hash);
  if (target && sources[target[1]]) {
    sources[target[1]].show(Number(target[2]));
  } else if (cameFrom) {
    cameFrom.focus({ preventScroll: true });
    cameFrom = null;
  }
}

function goTo(hash) {
  if (!document.activeElement.closest('.source')) cameFrom = document.activeElement;
  if (location.hash === hash) showLine();
  else location.hash = hash;
}

document.addEventListener('click', (event) => {
  const link = event.target.closest('a[href^="#L"], a[href^="#O"]');
  if (!link || event.ctrlKey || event.metaKey || event.shiftKey || event.altKey) return;
  event.preventDefault();
  goTo(link.getAttribute('href'));
});
addEventListener('hashchange', showLine);

// --- keys and theme

document.addEventListener('keydown', (event) => {
  const typing = event.target.matches('input[type="search"]');
  if (event.key === '/' && !typing && !event.ctrlKey && !event.metaKey && !event.altKey) {
    event.preventDefault();
    fields.search.focus();
    fields.search.select();
  } else if (event.key === 'Escape' && isFiltered()) {
    event.preventDefault();
    clearFilters();
  }
});

const themes = [['', 'Theme: as the system'], ['dark', 'Theme: dark'], ['light', 'Theme: light']];
let theme = 0;
byId('theme').addEventListener('click', () => {
  theme = (theme + 1) % themes.length;
  const [name, label] = themes[theme];
  if (name) document.documentElement.dataset.theme = name;
  else delete document.documentElement.dataset.theme;
  byId('theme').textContent = label;
});

for (const field of Object.values(fields)) field.addEventListener('input', applyFilters);
for (const box of Object.values(ticks)) box.addEventListener('change', applyFilters);
byId('clear').addEventListener('click', clearFilters);

byId('changedLabel').hidden = data.old === null;
addAbout();
addSections();
applyFilters();
showLine();
