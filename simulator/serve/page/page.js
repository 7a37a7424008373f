// The page: a phone with its buttons, and what stands beside it.
import {Compare} from './compare.js';
import {Console} from './console.js';
import {fillChoices} from './devices.js';
import {element} from './dom.js';
import {takeInHand} from './hands.js';
import {Inspector} from './inspector.js';
import {bindLayouts} from './layouts.js';
import {Link} from './link.js';
import {note, noteKey, noteSetting} from './notes.js';
import {bindRecord} from './record.js';
import {Screen, fit} from './screen.js';
import {Settings} from './settings.js';
import {Steps, attempt, outcome} from './steps.js';
import {bindTabs, offerPanel} from './tabs.js';

const canvas = element('screen');
const screen = new Screen(canvas);
const link = new Link('socket', {
  started: begin,
  frame: (data) => screen.push(data),
  ended: tellOfTheEnd,
  refused: ({reason}) => outcome(reason, true),
  closed: (reason) => say(reason ? `Disconnected: ${reason}` : 'Disconnected'),
});
const settings = new Settings(link, noteSetting);
const compare = new Compare(settings);
const inspector = new Inspector(link, screen);
const log = new Console(link);
const steps = new Steps(link);
let landscape = false;

function say(text) {
  element('state').textContent = text;
}

function begin(message) {
  screen.reset();
  canvas.classList.toggle('rounded', message.rounded);
  offerPanel('settings', message.messages.includes('settings'));
  settings.refresh();
  inspector.look();
  log.begin(message.messages);
  steps.begin();
  compare.firstStarted(message);
  document.title = `Tilo: ${message.device}, ${message.ios}`;
  if (!message.safe) element('trouble').hidden = true;
  say(message.safe ? 'Safe mode' : 'Running');
  fillChoices(element('device'), element('system'), message);
}

function tellOfTheEnd({reason, trace, safe}) {
  element('trouble').hidden = false;
  element('trace').textContent = trace;
  element('why').textContent = `SpringBoard has ended: ${reason}` +
      (safe ? '. It is back in safe mode, without libraries; "Respring" loads them again.' : '.');
}

function refit() {
  const zoom = fit([screen, ...compare.screens]);
  element('zoom').textContent = zoom === 1 ? '' : `${+(zoom * 100).toFixed(2)} %`;
}
window.addEventListener('resize', refit);
// As soon as there is anything to measure.
new ResizeObserver(refit).observe(document.documentElement);
screen.addEventListener('resize', () => {
  landscape = screen.points.width > screen.points.height;
  refit();
});
compare.addEventListener('resize', refit);

let refreshing;
screen.addEventListener('drawn', ({detail}) => {
  link.send({type: 'drawn', frame: detail});
  // What moved may have been a setting's doing.
  clearTimeout(refreshing);
  refreshing = setTimeout(() => settings.refresh(), 300);
  inspector.look();
});
screen.addEventListener('lost', ({detail}) => say(`A frame was lost: ${detail}`));

function step(line) {
  note(line);
  return link.step(line);
}
const press = (line) => attempt(() => step(line));

element('home').onclick = () => press('home');
// Others may have locked it.
element('lock').onclick = () => attempt(async () => step((await window.tilo.report()).locked ? 'unlock' : 'lock'));
element('rotate').onclick = () => press(`rotate ${(landscape = !landscape) ? 'landscape' : 'portrait'}`);
element('respring').onclick = () => {
  element('trouble').hidden = true;
  link.send({type: 'respring'});
};
element('safe').onclick = () => link.send({type: 'respring', safe: true});
element('quit').onclick = () => link.send({type: 'quit'});
element('device').onchange = ({target}) => link.send({type: 'device', device: target.value});
element('system').onchange = ({target}) =>
    link.send({type: 'device', device: element('device').value, ios: target.value});

takeInHand(screen, link, {note, noteKey});
bindLayouts(link);
bindRecord(screen);
bindTabs();
element('tabs').addEventListener('panel', () => outcome(''));

window.tilo = {report: () => link.ask({type: 'report'}), step: (line) => link.step(line)};
