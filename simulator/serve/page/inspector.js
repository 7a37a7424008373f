// The inspector: the tree of views, the one that is pointed at, and what there is to know of the chosen one.
import {element, made} from './dom.js';
import {showFacts, wordsOf} from './facts.js';
import {shownPanel} from './tabs.js';
import {Tree} from './tree.js';

const pause = 200;  // milliseconds between looks at what moves

export class Inspector {
  #link;
  #screen;
  #tree = new Tree(element('tree'));
  #views = new Map();  // by their ids
  #pointed = null;
  #looking = false;
  #again = false;
  #asking = false;
  #seeking = null;  // the place that is asked for next, and who is told

  constructor(link, screen) {
    this.#link = link;
    this.#screen = screen;
    this.#tree.addEventListener('choose', () => this.#showChosen());
    this.#tree.addEventListener('point', ({detail}) => this.#pointTo(detail));
    element('seek').addEventListener('input', ({target}) => this.#tree.search(target.value));
    element('point').onclick = () => this.#setPointing(!this.#isPointing());
    element('tabs').addEventListener('panel', () => this.#appear());
    const glass = element('glass');
    glass.addEventListener('pointermove', (event) => this.#seek(event, (id) => this.#pointTo(id)));
    glass.addEventListener('pointerleave', () => this.#pointTo(null));
    glass.addEventListener('click', (event) => this.#seek(event, (id) => {
      this.#setPointing(false);
      if (id) this.#tree.choose(id);
    }));
    window.addEventListener('keydown', ({key}) => {
      if (key === 'Escape' && this.#isPointing()) this.#setPointing(false);
    });
  }

  // Something on the screen may be another than before. Looks at once, and then no more often than there is time for.
  async look() {
    if (shownPanel() !== 'inspector') return;
    this.#again = true;
    if (this.#looking) return;
    this.#looking = true;
    while (this.#again) {
      this.#again = false;
      const windows = await this.#link.ask({type: 'views'}).catch(() => null);
      if (windows) this.#show(windows);  // else the home screen is on its way
      await new Promise((resolve) => setTimeout(resolve, pause));
    }
    this.#looking = false;
  }

  #appear() {
    if (shownPanel() !== 'inspector') this.#setPointing(false);
    this.look();
    this.#outline();
  }

  #show(windows) {
    const before = this.#views, changed = new Set();
    this.#views = new Map();
    const thing = (view, isHidden) => {
      const faint = isHidden || view.hidden || view.alpha < 0.01;
      const own = {id: view.id, text: view.class, more: wordsOf(view), faint};
      own.children = view.children.map((child) => thing(child, faint));
      const {children, onScreen, ...facts} = view;
      const told = JSON.stringify(facts);
      if (before.size > 0 && before.get(view.id)?.told !== told) changed.add(view.id);
      this.#views.set(view.id, {...view, told});
      return own;
    };
    this.#tree.show(windows.map((each) => thing(each, false)), changed);
    this.#showChosen();
  }

  async #showChosen() {
    this.#outline();
    const id = this.#tree.chosen, view = this.#views.get(id);
    if (!view) return element('facts').replaceChildren();
    let more = {};
    try {
      more = await this.#link.ask({type: 'view', view: id});
    } catch {
      // it has just gone
    }
    if (id === this.#tree.chosen) showFacts(element('facts'), view, more);
  }

  #isPointing() {
    return element('point').ariaPressed === 'true';
  }

  #setPointing(on) {
    element('point').ariaPressed = on;
    element('glass').classList.toggle('pointing', on);
    if (!on) this.#pointTo(null);
  }

  // One question at a time; the last place is asked for in the end.
  async #seek(event, found) {
    this.#seeking = {at: this.#screen.place(event), found};
    if (this.#asking) return;
    this.#asking = true;
    while (this.#seeking) {
      const {at, found: tell} = this.#seeking;
      this.#seeking = null;
      try {
        tell(await this.#link.ask({type: 'view-at', ...at}));
      } catch {
        break;
      }
    }
    this.#asking = false;
  }

  #pointTo(id) {
    this.#pointed = id;
    this.#outline();
    if (id && !this.#views.has(id)) this.look();
  }

  // On the glass over the screen, in parts of its size.
  #outline() {
    const shown = shownPanel() === 'inspector';
    for (const [name, id] of [['pointed', this.#pointed], ['chosen', this.#tree.chosen]]) {
      const view = shown && this.#views.get(id), outline = element(name);
      outline.hidden = !view;
      if (!view) continue;
      const [x, y, width, height] = view.onScreen, {points} = this.#screen;
      Object.assign(outline.style, {
        left: `${(x / points.width) * 100}%`,
        top: `${(y / points.height) * 100}%`,
        width: `${(width / points.width) * 100}%`,
        height: `${(height / points.height) * 100}%`,
      });
      outline.firstChild.textContent = `${view.class} ${+width.toFixed(1)} × ${+height.toFixed(1)}`;
      outline.classList.toggle('low', y < 24);
    }
  }
}
