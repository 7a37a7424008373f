// Another phone beside the first: the same settings and layouts on another device, or without libraries.
import {fillChoices} from './devices.js';
import {element} from './dom.js';
import {takeInHand} from './hands.js';
import {Link} from './link.js';
import {Screen} from './screen.js';

export class Compare extends EventTarget {
  #settings;
  #phone = null;  // what there is while two are compared
  #first = null;  // what the first phone has said of itself
  #layouts;

  // How many phones there are, or how large, is an event "resize".
  constructor(settings) {
    super();
    this.#settings = settings;
    settings.addEventListener('rows', ({detail}) => this.#follow(detail));
    element('compare').onclick = () => (this.#phone ? this.#end() : this.#begin());
  }

  get screens() {
    return this.#phone ? [this.#phone.screen] : [];
  }

  /** The first home screen has started: its files may be others, and the second one gets them. */
  firstStarted(message) {
    this.#first = message;
    if (this.#phone?.ready) this.#restart();
  }

  #begin() {
    const part = element('second-phone').content.cloneNode(true).firstElementChild;
    element('stage').after(part);
    element('compare').ariaPressed = true;
    const screen = new Screen(part.querySelector('canvas'));
    const link = new Link('socket', {
      started: (message) => this.#started(message),
      frame: (data) => screen.push(data),
      ended: ({reason}) => this.#say(`SpringBoard has ended: ${reason}`),
      refused: ({reason}) => this.#say(reason),
      closed: (reason) => this.#say(reason ? `Disconnected: ${reason}` : 'Disconnected'),
    }, 'tilo-second');
    const [device, system, stock] = ['device', 'system', 'stock'].map((name) => part.querySelector(`.${name}`));
    this.#phone = {part, screen, link, device, system, stock, told: new Map(), ready: false};
    screen.addEventListener('resize', () => this.dispatchEvent(new Event('resize')));
    screen.addEventListener('drawn', ({detail}) => link.send({type: 'drawn', frame: detail}));
    takeInHand(screen, link);
    device.onchange = () => this.#restart({ios: null});
    system.onchange = stock.onchange = () => this.#restart();
    window.tilo.second = {report: () => link.ask({type: 'report'}), step: (line) => link.step(line)};
    this.dispatchEvent(new Event('resize'));
  }

  #end() {
    this.#phone.link.close();
    this.#phone.part.remove();
    this.#phone = null;
    delete window.tilo.second;
    element('compare').ariaPressed = false;
    this.dispatchEvent(new Event('resize'));
  }

  #say(text) {
    if (this.#phone) this.#phone.part.querySelector('output').textContent = text;
  }

  // With the files of the first as they are now.
  #restart({ios = this.#phone.system.value} = {}) {
    const {device, stock, link} = this.#phone;
    link.send({type: 'device', device: device.value, ios, stock: stock.checked});
  }

  // At first there is none: it begins as the first one is, without libraries.
  #started(message) {
    const phone = this.#phone;
    if (!phone) return;
    if (!message.running) {
      phone.link.send({type: 'device', device: this.#first.device, ios: this.#first.ios, stock: true});
      return;
    }
    phone.ready = true;
    phone.told.clear();
    phone.screen.reset();
    phone.screen.canvas.classList.toggle('rounded', message.rounded);
    phone.stock.checked = message.stock;
    fillChoices(phone.device, phone.system, message);
    this.#say(message.safe ? 'Safe mode' : '');
    this.#layouts = undefined;
    this.#settings.refresh();
  }

  // What is set on the first is set on the second. Another list of layouts is another file.
  #follow(rows) {
    const phone = this.#phone;
    if (!phone?.ready) return;
    const layouts = JSON.stringify(rows.find((row) => row.choices === 'layouts')?.validTitles);
    const others = this.#layouts !== undefined && this.#layouts !== layouts;
    this.#layouts = layouts;
    if (others) return this.#restart();
    const isNew = phone.told.size === 0;
    for (const {key, value} of rows) {
      if (!key || phone.told.get(key) === value) continue;
      phone.told.set(key, value);
      if (!isNew) phone.link.ask({type: 'set', key, value}).catch(({message}) => this.#say(message));
    }
  }
}
