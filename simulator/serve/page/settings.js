// The settings beside the phone, from the rows that the device's own page has.
import {element} from './dom.js';

export class Settings extends EventTarget {
  #link;
  #note;
  #controls = new Map();
  #shape;

  // What the rows are now is an event "rows", with them as its detail.
  // `note` is called with the key and value of what somebody has set here.
  constructor(link, note) {
    super();
    this.#link = link;
    this.#note = note;
  }

  async refresh() {
    let rows;
    try {
      rows = await this.#link.ask({type: 'settings'});
    } catch {
      return;  // the home screen is on its way
    }
    const shape = JSON.stringify(rows.map(({value, ...rest}) => rest));
    if (shape !== this.#shape) {
      this.#shape = shape;
      this.#build(rows);
    }
    for (const {key, value} of rows) if (key) this.#controls.get(key).show(value);
    this.dispatchEvent(new CustomEvent('rows', {detail: rows}));
  }

  #build(rows) {
    this.#controls.clear();
    const groups = [];
    for (const row of rows) {
      if (row.cell === 'PSGroupCell' || groups.length === 0) groups.push(groupOf(row));
      if (row.key) groups.at(-1).insertBefore(this.#labelOf(row), groups.at(-1).querySelector('p'));
    }
    element('rows').replaceChildren(...groups.filter((group) => group.querySelector('label')));
  }

  #labelOf(row) {
    const label = document.createElement('label');
    const title = document.createElement('span');
    title.textContent = row.label;
    const inputs =
        row.kind === 'boolean' ? [this.#switchOf(row)] : row.validValues ? [this.#choiceOf(row)] : this.#sliderOf(row);
    label.append(title, ...inputs);
    return label;
  }

  async #change(key, value) {
    try {
      await this.#link.ask({type: 'set', key, value});
      this.#note(key, value);
      element('fault').textContent = '';
    } catch (error) {
      element('fault').textContent = error.message;
    }
    this.refresh();
  }

  #switchOf({key}) {
    const input = document.createElement('input');
    input.type = 'checkbox';
    input.onchange = () => this.#change(key, input.checked);
    this.#controls.set(key, {show: (value) => (input.checked = Boolean(value))});
    return input;
  }

  #choiceOf({key, validValues, validTitles}) {
    const input = document.createElement('select');
    input.append(...validValues.map((value, i) => new Option(validTitles[i], value)));
    input.onchange = () => this.#change(key, Number(input.value));
    this.#controls.set(key, {show: (value) => (input.value = value)});
    return input;
  }

  // A number to be typed, and a slider over its range; they follow each other. An emptied field is no number, and has the
  // one that it had again.
  #sliderOf({key, label, min, max, whole}) {
    let last;
    const [typed, slid] = ['number', 'range'].map((type) => {
      const input = Object.assign(document.createElement('input'), {type, min, max, step: whole ? 1 : 0.1});
      input.onchange = () => {
        if (input.value === '') input.value = last;
        else this.#change(key, Number(input.value));
      };
      return input;
    });
    slid.oninput = () => {
      typed.value = slid.value;
      this.#change(key, Number(slid.value));
    };
    typed.setAttribute('aria-label', label);  // without the slider's value
    slid.setAttribute('aria-label', `${label}, slider`);
    const show = (value) => {
      last = value;
      if (document.activeElement !== typed) typed.value = value;
      if (document.activeElement !== slid) slid.value = value;
    };
    this.#controls.set(key, {show});
    return [typed, slid];
  }
}

function groupOf({label, footerText}) {
  const group = document.createElement('fieldset');
  const legend = document.createElement('legend'), footer = document.createElement('p');
  legend.textContent = label ?? '';
  footer.textContent = footerText ?? '';
  group.append(legend, footer);
  return group;
}
