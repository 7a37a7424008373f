// What there is to know of a view, as a table, and what the icon list answers that it lies in.
import {breakable, made} from './dom.js';

const round = (value) => (typeof value === 'number' ? +value.toFixed(3) : value);
const numbers = (list) => list.map(round).join(', ');
const isIdentity = (transform) => transform.join() === '1,0,0,1,0,0';

/** In few words, for its row in the tree. */
export function wordsOf({text, frame}) {
  return text ? `“${text}”` : `${round(frame[2])} × ${round(frame[3])}`;
}

export function showFacts(box, view, {classes = [], list}) {
  const rows = [
    ['class', made('dd', {}, ...breakable(classes.join(' : ') || view.class))],
    ['frame', numbers(view.frame)],
    ['on screen', numbers(view.onScreen)],
    ['alpha', round(view.alpha)],
    ['hidden', view.hidden ? 'yes' : 'no'],
    ['transform', isIdentity(view.transform) ? 'none' : numbers(view.transform)],
    ['background', colour(view.background)],
    ['corner radius', round(view.cornerRadius)],
    ['text', view.text],
    ['text colour', colour(view.textColor)],
  ];
  const facts = made('dl');
  for (const [name, value] of rows)
    if (value !== null && value !== undefined)
      facts.append(made('dt', {text: name}), value instanceof Node ? value : made('dd', {text: value}));
  keep(box, 0, facts);
  keep(box, 1, list ? listTable(list) : made('p', {text: ''}));
}

// A part that is as before stays, so that somebody can mark and copy from it.
function keep(box, at, part) {
  const old = box.children[at];
  if (!old) box.append(part);
  else if (old.innerHTML !== part.innerHTML) old.replaceWith(part);
}

function colour(color) {
  if (!color) return null;
  const [red, green, blue, alpha] = color;
  const swatch = made('span', {className: 'swatch'});
  swatch.style.backgroundColor = `rgb(${red} ${green} ${blue} / ${alpha})`;
  return made('dd', {}, swatch, `${red}, ${green}, ${blue}${alpha === 1 ? '' : `, ${round(alpha)}`}`);
}

function listTable(list) {
  const body = made('tbody');
  for (const {message, value, given} of list.answers) {
    const how = given.map((each) => `${each.by}: ${round(each.value)}`).join(' → ');
    body.append(made('tr', {className: given.length > 1 ? 'replaced' : ''}, made('th', {scope: 'row'}, ...breakable(message)),
                     made('td', {text: round(value)}), made('td', {text: how})));
  }
  const head = ['Message', 'Answer', 'Given by'].map((text) => made('th', {scope: 'col', text}));
  return made('table', {}, made('caption', {text: `What ${list.class} answers`}),
              made('thead', {}, made('tr', {}, ...head)), body);
}
