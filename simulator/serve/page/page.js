// The home screen on a page: frames come in over a WebSocket, touches and keys go out.
const element = (id) => document.getElementById(id);
const canvas = element('screen');
const context = canvas.getContext('2d', {alpha: false});
const codecs = ['image/jpeg', 'image/webp'];

let socket;
let points = {width: 1, height: 1};
let started = {devices: []};
let landscape = false, locked = false;
const answers = new Map();
let nextAnswer = 1;

// Talking to the program.

function send(message) {
  if (socket.readyState === WebSocket.OPEN) socket.send(JSON.stringify(message));
}

function ask(message) {
  return new Promise((resolve, reject) => {
    const id = nextAnswer++;
    answers.set(id, {resolve, reject});
    send({...message, id});
  });
}

function step(line) {
  return ask({type: 'step', step: line});
}

function say(text) {
  element('state').textContent = text;
}

function connect() {
  socket = new WebSocket(new URL('socket', location.href.replace(/^http/, 'ws')), 'tilo');
  socket.binaryType = 'arraybuffer';
  socket.onmessage = ({data}) => (typeof data === 'string' ? hear(JSON.parse(data)) : frames.push(data));
  socket.onclose = ({reason}) => {
    say(reason ? `Disconnected: ${reason}` : 'Disconnected');
    for (const {reject} of answers.values()) reject(new Error('the connection has ended'));
    answers.clear();
  };
}

function hear(message) {
  switch (message.type) {
    case 'started':
      begin(message);
      break;
    case 'done':
    case 'answer':
    case 'report': {
      const answer = answers.get(message.id);
      answers.delete(message.id);
      if (message.error) answer?.reject(new Error(message.error));
      else answer?.resolve(message.report ?? message.answer);
      break;
    }
    case 'ended':
      element('trouble').hidden = false;
      element('trouble').textContent =
          `SpringBoard has ended: ${message.reason}` +
          (message.safe ? '. It is back in safe mode, without libraries; "Respring" loads them again.' : '.');
      for (const {reject} of answers.values()) reject(new Error(message.reason));
      answers.clear();
      break;
    case 'refused':
      outcome(message.reason, true);
      break;
  }
}

function begin(message) {
  started = message;
  landscape = locked = false;
  frames.reset();
  canvas.classList.toggle('rounded', message.rounded);
  refreshSettings();
  document.title = `Tilo: ${message.device}, ${message.ios}`;
  if (!message.safe) element('trouble').hidden = true;
  say(message.safe ? 'Safe mode' : 'Running');
  const device = element('device');
  device.replaceChildren(...message.devices.map(({name}) => new Option(name, name, false, name === message.device)));
  fillSystems(message.device, message.ios);
}

// Systems that are told apart by what they have: the first and the last that a model ran, and those between by their
// major versions.
function fillSystems(name, current) {
  const model = started.devices.find((each) => each.name === name);
  const major = (text) => parseInt(text, 10);
  const between = [];
  for (let each = major(model.first) + 1; each < major(model.last); ++each) between.push(`${each}.0`);
  const all = new Set([model.first, ...between, '10.3.3', model.last, current]);
  const inRange = (text) => compare(text, model.first) >= 0 && compare(text, model.last) <= 0;
  const systems = [...all].filter(inRange).sort(compare);
  element('system').replaceChildren(...systems.map((each) => new Option(each, each, false, each === current)));
}

function compare(a, b) {
  const [one, other] = [a, b].map((text) => text.split('.').map(Number));
  for (let i = 0; i < 3; ++i) if ((one[i] ?? 0) !== (other[i] ?? 0)) return (one[i] ?? 0) - (other[i] ?? 0);
  return 0;
}

// Frames, drawn in their order, each as a whole.

const frames = {
  last: Promise.resolve(),
  era: 0,
  reset() {
    ++this.era;
  },
  push(data) {
    const era = this.era, decoded = decode(data);
    this.last = this.last.then(async () => {
      const frame = await decoded;
      if (era === this.era) draw(frame);
      frame.tiles.forEach(({image}) => image.close());
    }).catch((error) => say(`A frame was lost: ${error.message}`));
  },
};

async function decode(data) {
  const view = new DataView(data);
  let at = 0;
  const u8 = () => view.getUint8(at++);
  const u16 = () => view.getUint16((at += 2) - 2, true);
  const u32 = () => view.getUint32((at += 4) - 4, true);
  const frame = {number: u32(), width: u16(), height: u16(), points: {width: u16(), height: u16()}};
  const count = u16();
  frame.tiles = [];
  for (let i = 0; i < count; ++i) {
    const tile = {x: u16(), y: u16(), width: u16(), height: u16(), codec: u8()};
    const length = u32();
    tile.blob = new Blob([new Uint8Array(data, at, length)], {type: codecs[tile.codec]});
    at += length;
    frame.tiles.push(tile);
  }
  await Promise.all(frame.tiles.map(async (tile) => {
    tile.image = await createImageBitmap(tile.blob, {colorSpaceConversion: 'none', premultiplyAlpha: 'none'});
  }));
  return frame;
}

function draw(frame) {
  if (canvas.width !== frame.width || canvas.height !== frame.height) {
    canvas.width = frame.width;
    canvas.height = frame.height;
  }
  points = frame.points;
  fit();
  for (const {image, x, y} of frame.tiles) context.drawImage(image, x, y);
  canvas.dataset.frame = frame.number;
  send({type: 'drawn', frame: frame.number});
  // What moved may have been a setting's doing.
  clearTimeout(refreshing);
  refreshing = setTimeout(refreshSettings, 300);
}

// As large as the device, or as the window allows.
function fit() {
  const narrow = window.innerWidth <= 500;
  const room = {width: window.innerWidth - (narrow ? 0 : 80), height: window.innerHeight - (narrow ? 0 : 190)};
  const zoom = Math.min(narrow ? 4 : 1, room.width / points.width, room.height / points.height);
  canvas.style.width = `${points.width * zoom}px`;
  canvas.style.height = `${points.height * zoom}px`;
  element('zoom').textContent = zoom === 1 ? '' : `${Math.round(zoom * 100)} %`;
}
window.addEventListener('resize', fit);

// Fingers. What they did is written down as steps when they lift.

const firmForce = 5;
const fingers = new Map();
let firm = false;

function place(event) {
  const box = canvas.getBoundingClientRect();
  return {
    x: ((event.clientX - box.left) / box.width) * points.width,
    y: ((event.clientY - box.top) / box.height) * points.height,
  };
}

function forceOf(event) {
  if (firm) return firmForce;
  return event.pointerType === 'pen' && event.pressure > 0 ? event.pressure * firmForce : 1;
}

function freeNumber() {
  const taken = new Set([...fingers.values()].flatMap(({numbers}) => numbers));
  return [...Array(10).keys()].find((number) => !taken.has(number)) ?? 9;
}

const opposite = ({x, y}) => ({x: points.width - x, y: points.height - y});

function touch(numbers, phase, at, force) {
  const places = [at, opposite(at)];
  numbers.forEach((number, i) => send({type: 'finger', id: number, phase, ...places[i], force}));
}

canvas.addEventListener('pointerdown', (event) => {
  if (event.button !== 0) return;
  canvas.focus();
  canvas.setPointerCapture(event.pointerId);
  const at = place(event);
  const finger = {numbers: [freeNumber()], from: at, at, since: performance.now(), farthest: 0, force: forceOf(event)};
  fingers.set(event.pointerId, finger);
  if (event.shiftKey) finger.numbers.push(freeNumber());
  touch(finger.numbers, 'down', at, forceOf(event));
  event.preventDefault();
});

canvas.addEventListener('pointermove', (event) => {
  const finger = fingers.get(event.pointerId);
  if (!finger) return;
  finger.at = place(event);
  finger.force = Math.max(finger.force, forceOf(event));
  finger.farthest = Math.max(finger.farthest, Math.hypot(finger.at.x - finger.from.x, finger.at.y - finger.from.y));
  touch(finger.numbers, 'move', finger.at, forceOf(event));
});

function lift(event) {
  const finger = fingers.get(event.pointerId);
  if (!finger) return;
  const at = place(event);
  touch(finger.numbers, 'up', at, 0);
  fingers.delete(event.pointerId);
  if (event.type === 'pointerup') writeDown(finger, at);
}
canvas.addEventListener('pointerup', lift);
canvas.addEventListener('pointercancel', lift);
canvas.addEventListener('contextmenu', (event) => event.preventDefault());

function writeDown(finger, at) {
  const number = (value) => +value.toFixed(1);
  const seconds = Math.max(0.05, (performance.now() - finger.since) / 1000);
  const [x, y] = [number(finger.from.x), number(finger.from.y)];
  if (finger.numbers.length > 1) note(`two-finger-tap ${x} ${y}`);
  else if (finger.force >= firmForce) note(`press ${finger.force} ${x} ${y}`);
  else if (finger.farthest < 10) note(`tap ${x} ${y}`);
  else note(`drag ${x} ${y} ${number(at.x)} ${number(at.y)} ${seconds.toFixed(2)}`);
}

// Keys.

canvas.addEventListener('keydown', (event) => {
  if (event.ctrlKey || event.metaKey || event.altKey || event.key === 'Tab') return;
  if (event.key === 'f' && !firm && fingers.size > 0) {
    firm = true;
    for (const finger of fingers.values()) {
      finger.force = firmForce;
      touch(finger.numbers, 'move', finger.at, firmForce);
    }
  } else if (fingers.size === 0 && (event.key.length === 1 || event.key === 'Backspace' || event.key === 'Enter')) {
    send({type: 'key', key: event.key});
  }
  event.preventDefault();
});
window.addEventListener('keyup', (event) => {
  if (event.key === 'f') firm = false;
});

// Settings, from the rows that the device's own page has.

let refreshing;
const controls = new Map();

async function refreshSettings() {
  clearTimeout(refreshing);
  let rows;
  try {
    rows = await ask({type: 'settings'});
  } catch {
    return;  // the home screen is on its way, or knows no settings
  }
  const shape = JSON.stringify(rows.map(({value, ...rest}) => rest));
  if (shape !== refreshSettings.shape) {
    refreshSettings.shape = shape;
    buildSettings(rows);
  }
  for (const {key, value} of rows) if (key) controls.get(key).show(value);
}

function buildSettings(rows) {
  controls.clear();
  const groups = [];
  for (const row of rows) {
    if (row.cell === 'PSGroupCell' || groups.length === 0) groups.push(groupOf(row));
    if (row.key) groups.at(-1).insertBefore(labelOf(row), groups.at(-1).querySelector('p'));
  }
  element('rows').replaceChildren(...groups.filter((group) => group.querySelector('label')));
  element('settings').hidden = controls.size === 0;
}

function groupOf({label, footerText}) {
  const group = document.createElement('fieldset');
  const legend = document.createElement('legend'), footer = document.createElement('p');
  legend.textContent = label ?? '';
  footer.textContent = footerText ?? '';
  group.append(legend, footer);
  return group;
}

function labelOf(row) {
  const label = document.createElement('label');
  const title = document.createElement('span');
  title.textContent = row.label;
  const inputs = row.kind === 'boolean' ? [switchOf(row)] : row.validValues ? [choiceOf(row)] : sliderOf(row);
  label.append(title, ...inputs);
  return label;
}

async function change(key, value) {
  try {
    await ask({type: 'set', key, value});
    element('fault').textContent = '';
  } catch (error) {
    element('fault').textContent = error.message;
  }
  refreshSettings();
}

function switchOf({key}) {
  const input = document.createElement('input');
  input.type = 'checkbox';
  input.onchange = () => change(key, input.checked);
  controls.set(key, {show: (value) => (input.checked = Boolean(value))});
  return input;
}

function choiceOf({key, validValues, validTitles, validColors}) {
  const input = document.createElement('select');
  input.append(...validValues.map((value, i) => new Option(validTitles[i], value)));
  input.onchange = () => change(key, Number(input.value));
  controls.set(key, {show: (value) => (input.value = value)});
  return input;
}

// A number to be typed, and a slider over its range; they follow each other.
function sliderOf({key, label, min, max, whole}) {
  const [typed, slid] = ['number', 'range'].map((type) => {
    const input = Object.assign(document.createElement('input'), {type, min, max, step: whole ? 1 : 0.1});
    input.onchange = () => change(key, Number(input.value));
    return input;
  });
  slid.oninput = () => {
    typed.value = slid.value;
    change(key, Number(slid.value));
  };
  slid.setAttribute('aria-label', `${label}, slider`);
  const show = (value) => {
    if (document.activeElement !== typed) typed.value = value;
    if (document.activeElement !== slid) slid.value = value;
  };
  controls.set(key, {show});
  return [typed, slid];
}

// Buttons and choices.

function note(line) {
  const script = element('script');
  script.value += (script.value && !script.value.endsWith('\n') ? '\n' : '') + line + '\n';
  script.scrollTop = script.scrollHeight;
}

function outcome(text, wrong = false) {
  element('outcome').textContent = text;
  element('outcome').className = wrong ? 'wrong' : '';
}

async function press(line) {
  note(line);
  try {
    await step(line);
    outcome('');
  } catch (error) {
    outcome(error.message, true);
  }
}

element('home').onclick = () => press('home');
element('lock').onclick = () => press((locked = !locked) ? 'lock' : 'unlock');
element('rotate').onclick = () => press(`rotate ${(landscape = !landscape) ? 'landscape' : 'portrait'}`);
element('respring').onclick = () => {
  element('trouble').hidden = true;
  send({type: 'respring'});
};
element('safe').onclick = () => send({type: 'respring', safe: true});
element('quit').onclick = () => send({type: 'quit'});
element('device').onchange = ({target}) => send({type: 'device', device: target.value});
element('system').onchange = ({target}) => send({type: 'device', device: element('device').value, ios: target.value});

element('clear').onclick = () => {
  element('script').value = '';
  outcome('');
};
element('run').onclick = async () => {
  const lines = element('script').value.split('\n');
  try {
    for (const [index, line] of lines.entries()) {
      outcome(`Step ${index + 1}: ${line}`);
      await step(line);
    }
    outcome('Done');
  } catch (error) {
    outcome(`${element('outcome').textContent}: ${error.message}`, true);
  }
};
element('download').onclick = () => {
  const link = document.createElement('a');
  link.href = URL.createObjectURL(new Blob([element('script').value], {type: 'text/plain'}));
  link.download = 'steps.txt';
  link.click();
  URL.revokeObjectURL(link.href);
};

window.tilo = {report: () => ask({type: 'report'}), step};

connect();
