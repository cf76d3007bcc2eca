
// The text of a settings file with line numbers. Lines become elements when they come into view or are linked to.
//   text    { whole, count, lines }: every line, or [number, text] for each line that something refers to
//   letter  the prefix of the anchors
function makeSource(text, letter, label) {
  const kPiece = 200;
  const lines = text.whole ? text.lines.map((line, index) => [index + 1, line]) : text.lines;
  const box = el('div', { class: 'source', tabindex: 0, role: 'group', 'aria-label': label });
  const pieces = [];
  let marked = null;

  for (let start = 0; start < lines.length; start += kPiece) {
    const element = el('div', { class: 'piece' });
    const end = Math.min(lines.length, start + kPiece);
    element.style.height = rowsOf(start, end) * 1.4 + 'rem';
    const piece = { element, start, end, made: false };
    pieces.push(piece);
    box.append(element);
  }

  // The height in lines: a gap before a line takes one line itself.
  function rowsOf(start, end) {
    let count = end - start;
    for (let at = start; at < end; ++at) count += leftOut(at) > 0;
    return count;
  }

  function leftOut(at) { return lines[at][0] - (at === 0 ? 0 : lines[at - 1][0]) - 1; }

  function make(piece) {
    if (piece.made) return;
    piece.made = true;
    const made = document.createDocumentFragment();
    for (let at = piece.start; at < piece.end; ++at) {
      const [number, words] = lines[at];
      const skipped = leftOut(at);
      if (skipped > 0) made.append(el('div', { class: 'line left' }, `… ${plural(skipped, 'line', 'lines')} left out`));
      const kind = /^[ \t]*[;#]/.test(words) ? 'comment' : null;
      made.append(el('div', { class: 'line', id: letter + number, tabindex: -1 },
        el('a', { class: 'at', href: '#' + letter + number, tabindex: -1, 'aria-label': 'line ' + number }, String(number)),
        el('span', { class: kind }, words)));
    }
    piece.element.replaceChildren(made);
    piece.element.style.height = '';
  }

  const watcher = new IntersectionObserver((seen) => {
    for (const { isIntersecting, target } of seen) {
      if (isIntersecting) make(pieces.find((piece) => piece.element === target));
    }
  }, { rootMargin: '600px 0px' });
  for (const piece of pieces) watcher.observe(piece.element);

  // False when the page does not have the line.
  function show(number) {
    const piece = pieces.find((one) => lines[one.end - 1][0] >= number);
    if (!piece) return false;
    make(piece);
    const line = byId(letter + number);
    if (!line) return false;
    if (marked) marked.classList.remove('shown');
    marked = line;
    line.classList.add('shown');
    line.scrollIntoView({ block: 'center' });
    line.focus({ preventScroll: true });
    return true;
  }

  const note = text.whole ? '' : 'The file is too large to show whole: here are the lines that this page refers to, long ones cut.';
  return { element: el('div', {}, note ? el('p', { class: 'note' }, note) : null, box), show };
}
