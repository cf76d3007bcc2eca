
// The trading day of each market: one bar per session over 24 hours, and the times in words.
function makeSessions() {
  const kDay = 86400;
  const pad = (number) => String(number).padStart(2, '0');
  function clock(second) {
    const text = pad(Math.floor(second / 3600)) + ':' + pad(Math.floor(second / 60) % 60);
    return second % 60 ? text + ':' + pad(second % 60) : text;
  }
  const words = (sessions) => sessions.map(([start, end]) => clock(start) + '–' + clock(end)).join(', ') || 'none';
  const share = (second) => 100 * Math.max(0, Math.min(kDay, second)) / kDay + '%';

  function track(sessions) {
    const day = el('div', { class: 'day', role: 'img', 'aria-label': 'sessions: ' + words(sessions) });
    for (let hour = 3; hour < 24; hour += 3) {
      const mark = el('span', { class: 'hour' });
      mark.style.left = share(hour * 3600);
      day.append(mark);
    }
    for (const [start, end] of sessions) {
      const bar = el('span', { class: 'session', title: clock(start) + '–' + clock(end) });
      bar.style.left = share(start);
      bar.style.width = share(end - start);
      day.append(bar);
    }
    return day;
  }

  function scale() {
    const element = el('div', { class: 'scale', 'aria-hidden': 'true' });
    for (let hour = 0; hour <= 24; hour += 3) {
      const label = el('span', {}, pad(hour) + ':00');
      label.style.left = share(hour * 3600);
      element.append(label);
    }
    return element;
  }

  const { script, markets, trouble } = data.sessions;
  if (!markets || markets.length === 0) {
    return { element: el('p', { class: 'note' }, trouble), apply: () => ({ shown: 0, total: 0 }) };
  }
  const rows = markets.map(([market, sessions]) => ({
    text: (market + ' ' + words(sessions)).toLowerCase(),
    element: el('tr', {}, el('th', { scope: 'row' }, market), el('td', { class: 'track' }, track(sessions)), el('td', {}, words(sessions))),
  }));
  const none = el('p', { class: 'note', hidden: true }, 'No row fits the search.');
  const element = el('div', {}, el('div', { class: 'scroll' }, el('table', {},
    el('caption', {}, 'Beijing time, from ' + script + '. What a night session does after midnight is no session of its own here.'),
    el('thead', {}, el('tr', {}, el('th', { scope: 'col' }, 'market'), el('th', { scope: 'col', 'aria-label': 'day' }, scale()),
      el('th', { scope: 'col' }, 'sessions'))),
    el('tbody', {}, ...rows.map((row) => row.element)))), none);

  function apply(filters) {
    let count = 0;
    for (const row of rows) {
      const keep = holdsAll(row.text, filters.words);
      row.element.hidden = !keep;
      count += keep;
    }
    none.hidden = count > 0;
    return { shown: count, total: rows.length };
  }
  return { element, apply };
}
