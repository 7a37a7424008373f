// A tree of things with text, foldable, with search and a choice, by mouse and by keyboard.
import {made} from './dom.js';

const unfoldedLevels = 3;

export class Tree extends EventTarget {
  #box;
  #roots = [];
  #rows = new Map();      // elements, by their things' ids
  #unfolded = new Map();  // by id, where somebody has folded or unfolded
  #sought = '';
  chosen = null;

  // Things are {id, text, more, children}. Choosing one is an event "choose" with its id as its detail, pointing at one
  // "point" with its id or null.
  constructor(box) {
    super();
    this.#box = box;
    box.addEventListener('click', (event) => this.#click(event));
    box.addEventListener('keydown', (event) => this.#key(event));
    box.addEventListener('pointerover', ({target}) => this.#point(target.closest('[role=treeitem]')));
    box.addEventListener('pointerleave', () => this.#point(null));
  }

  // `changed` has the ids of those that have changed; what is folded away shows in what it is folded into.
  show(roots, changed = new Set()) {
    this.#roots = roots;
    this.#draw();
    for (const id of changed) this.#flash(id);
  }

  search(text) {
    this.#sought = text.trim().toLowerCase();
    this.#draw();
  }

  // Unfolds what it lies in, and brings it to view.
  choose(id) {
    this.chosen = id;
    for (const above of this.#pathTo(id).slice(0, -1)) this.#unfolded.set(above.id, true);
    this.#draw();
    this.#rows.get(id)?.scrollIntoView({block: 'nearest'});
    this.dispatchEvent(new CustomEvent('choose', {detail: id}));
  }

  #pathTo(id, things = this.#roots) {
    for (const thing of things) {
      if (thing.id === id) return [thing];
      const rest = this.#pathTo(id, thing.children);
      if (rest.length > 0) return [thing, ...rest];
    }
    return [];
  }

  #matches(thing) {
    return `${thing.text} ${thing.more}`.toLowerCase().includes(this.#sought);
  }

  // While something is sought, what matches and what it lies in.
  #remains(thing) {
    return this.#matches(thing) || thing.children.some((child) => this.#remains(child));
  }

  #isUnfolded(thing, level) {
    return this.#sought !== '' || (this.#unfolded.get(thing.id) ?? level < unfoldedLevels);
  }

  #draw() {
    const shown = [];
    const add = (thing, level) => {
      if (this.#sought && !this.#remains(thing)) return;
      shown.push(this.#row(thing, level));
      if (this.#isUnfolded(thing, level)) for (const child of thing.children) add(child, level + 1);
    };
    for (const root of this.#roots) add(root, 1);
    const kept = new Set(shown);
    for (const [id, row] of this.#rows) if (!kept.has(row)) this.#rows.delete(id);
    const hadFocus = this.#box.contains(document.activeElement) ? document.activeElement : null;
    shown.forEach((row, i) => {
      if (this.#box.children[i] !== row) this.#box.insertBefore(row, this.#box.children[i] ?? null);
    });
    while (this.#box.children.length > shown.length) this.#box.lastChild.remove();
    if (hadFocus?.isConnected && document.activeElement !== hadFocus) hadFocus.focus({preventScroll: true});
    const first = this.#rows.get(this.chosen) ?? shown[0];
    for (const row of shown) row.tabIndex = row === first ? 0 : -1;
  }

  #row(thing, level) {
    let row = this.#rows.get(thing.id);
    if (!row) {
      row = made('div', {role: 'treeitem'}, made('span', {className: 'fold', ariaHidden: 'true'}), made('span'),
                 made('span', {className: 'more'}));
      row.dataset.id = thing.id;
      this.#rows.set(thing.id, row);
    }
    const [fold, text, more] = row.children;
    const unfolded = this.#isUnfolded(thing, level), isLeaf = thing.children.length === 0;
    fold.textContent = isLeaf ? '' : unfolded ? '▾' : '▸';
    if (text.textContent !== thing.text) text.textContent = thing.text;
    if (more.textContent !== thing.more) more.textContent = thing.more;
    row.ariaLevel = level;
    row.ariaExpanded = isLeaf ? null : unfolded;
    row.ariaSelected = thing.id === this.chosen;
    row.style.paddingInlineStart = `${6 + 12 * (level - 1)}px`;
    row.classList.toggle('faint', Boolean(thing.faint));
    row.classList.toggle('found', this.#sought !== '' && this.#matches(thing));
    return row;
  }

  #flash(id) {
    const row = this.#pathTo(id).map((thing) => this.#rows.get(thing.id)).filter(Boolean).at(-1);
    if (!row) return;
    row.classList.remove('changed');
    void row.offsetWidth;  // so that it begins anew
    row.classList.add('changed');
  }

  #fold(row, unfold) {
    this.#unfolded.set(row.dataset.id, unfold);
    this.#draw();
  }

  #click({target}) {
    const row = target.closest('[role=treeitem]');
    if (!row) return;
    if (target.className === 'fold' && row.ariaExpanded) this.#fold(row, row.ariaExpanded === 'false');
    else this.choose(row.dataset.id);
  }

  #point(row) {
    this.dispatchEvent(new CustomEvent('point', {detail: row?.dataset.id ?? null}));
  }

  #key(event) {
    const row = document.activeElement, all = [...this.#box.children], at = all.indexOf(row);
    if (at < 0) return;
    const go = (to) => {
      if (!to) return;
      this.choose(to.dataset.id);
      this.#rows.get(to.dataset.id)?.focus();
    };
    const level = Number(row.ariaLevel);
    switch (event.key) {
      case 'ArrowDown': go(all[at + 1]); break;
      case 'ArrowUp': go(all[at - 1]); break;
      case 'Home': go(all[0]); break;
      case 'End': go(all.at(-1)); break;
      case 'ArrowRight':
        if (row.ariaExpanded === 'false') this.#fold(row, true);
        else if (row.ariaExpanded) go(all[at + 1]);
        break;
      case 'ArrowLeft':
        if (row.ariaExpanded === 'true') this.#fold(row, false);
        else go(all.slice(0, at).findLast((each) => Number(each.ariaLevel) < level));
        break;
      default: return;
    }
    event.preventDefault();
  }
}
