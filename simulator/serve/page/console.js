// The console: lines of the logs as they come, and replaced methods that were called in the last second.
import {breakable, element, made} from './dom.js';
import {shownPanel} from './tabs.js';

const pause = 500;  // milliseconds
const mostLines = 1000;
const colourCodes = /\u001b\[[0-9;]*m/g;
// What tells lines of each kind, and what they are marked with.
const logs = [{type: 'log', mark: ''}, {type: 'console', mark: 'system'}];

export class Console {
  #link;
  #read = new Map();  // how far, by type
  #known = [];
  #looking = false;

  constructor(link) {
    this.#link = link;
    element('tabs').addEventListener('panel', () => this.#look());
    element('clear-log').onclick = () => element('log').replaceChildren();
  }

  /** A home screen has started, which answers to messages of these types. */
  begin(messages) {
    this.#known = messages;
    this.#read.clear();
    if (element('log').children.length > 0) this.#add('SpringBoard has started', 'mark');
    this.#look();
  }

  async #look() {
    if (this.#looking) return;
    this.#looking = true;
    while (shownPanel() === 'console') {
      try {
        for (const {type, mark} of logs) if (this.#known.includes(type)) await this.#readOn(type, mark);
        this.#showCalls(await this.#link.ask({type: 'calls'}));
      } catch {
        // the home screen is on its way
      }
      await new Promise((resolve) => setTimeout(resolve, pause));
    }
    this.#looking = false;
  }

  async #readOn(type, mark) {
    const {lines, count} = await this.#link.ask({type, after: this.#read.get(type) ?? 0});
    this.#read.set(type, count);
    for (const line of lines) this.#add(line.replace(colourCodes, ''), mark);
  }

  #add(line, mark) {
    const box = element('log');
    const isAtEnd = box.scrollHeight - box.scrollTop - box.clientHeight < 30;
    box.append(made('div', {text: line, className: mark}));
    while (box.children.length > mostLines) box.firstChild.remove();
    if (isAtEnd) box.scrollTop = box.scrollHeight;
  }

  #showCalls(calls) {
    element('calls').replaceChildren(...calls.map((each) =>
        made('tr', {}, made('th', {scope: 'row'}, ...breakable(`${each.method[0]}[${each.class} ${each.method.slice(1)}]`)),
             made('td', {text: each.count}), made('td', {text: `${(each.seconds * 1000).toFixed(2)} ms`}),
             made('td', {text: each.libraries.join(', ')}))));
    element('no-calls').hidden = calls.length > 0;
  }
}
