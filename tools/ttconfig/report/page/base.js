'use strict';

// What the file says, as the program wrote it. All text in it is untrusted: it reaches the page only as text nodes and
// attribute values, never as markup.
const data = JSON.parse(document.getElementById('data').textContent);

const byId = (id) => document.getElementById(id);

// An element with attributes and children; a child that is not a node becomes text.
function el(name, attributes, ...children) {
  const element = document.createElement(name);
  for (const [key, value] of Object.entries(attributes || {})) {
    if (value !== null && value !== undefined && value !== false) element.setAttribute(key, value === true ? '' : value);
  }
  element.append(...children.filter((child) => child !== null && child !== undefined));
  return element;
}

function section(id, title, ...children) {
  return el('section', { id, 'aria-labelledby': id + 'Title' }, el('h2', { id: id + 'Title' }, title), ...children);
}

const plural = (count, one, many) => count.toLocaleString('en') + ' ' + (count === 1 ? one : many);

// A link to a line of the settings file or, when old is set, of the file it is compared with.
function lineLink(line, old) {
  if (!line) return '';
  return el('a', { href: (old ? '#O' : '#L') + line }, (old ? 'old ' : '') + line);
}

// Links to both lines if there are two, the newer one first.
function lineLinks(line, oldLine) {
  const links = el('span');
  if (line) links.append(lineLink(line, false));
  if (line && oldLine) links.append(', ');
  if (oldLine) links.append(lineLink(oldLine, true));
  return links;
}

const shown = (value) => (typeof value === 'string' ? value : JSON.stringify(value));
const same = (left, right) => JSON.stringify(left) === JSON.stringify(right);

// --- search

// Parses "12, 40-60, other", the platforms to show. Null when none are given.
function readPlatforms(text) {
  const wanted = { ranges: [], other: false, wrong: [], unnamed: [] };
  for (const piece of text.split(/[\s,;]+(?![\s-]*$)/).map((part) => part.trim()).filter(Boolean)) {
    const range = /^([+-]?\d+)(?:(?:-|\u2013|\.\.)([+-]?\d+))?$/.exec(piece);
    if (range) {
      const first = Number(range[1]);
      const last = range[2] === undefined ? first : Number(range[2]);
      wanted.ranges.push([Math.min(first, last), Math.max(first, last)]);
      if (range[2] === undefined && !namedPlatforms.has(first)) wanted.unnamed.push(piece);
    } else if ('others'.startsWith(piece.toLowerCase())) {
      wanted.other = true;
    } else {
      wanted.wrong.push(piece);
    }
  }
  // A platform that the file does not name is covered by "other".
  wanted.other = wanted.other || wanted.unnamed.length > 0;
  return wanted.ranges.length || wanted.other || wanted.wrong.length ? wanted : null;
}

const namedPlatforms = new Set(data.platforms);

// Null stands for any other platform.
function wantsPlatform(wanted, platform) {
  if (!wanted) return true;
  if (platform === null) return wanted.other;
  return wanted.ranges.some(([first, last]) => first <= platform && platform <= last);
}

const wordsOf = (text) => text.toLowerCase().split(/\s+/).filter(Boolean);
const holdsAll = (text, words) => words.every((word) => text.includes(word));
