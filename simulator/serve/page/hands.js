// Hands on a phone: mouse, pen and fingers become touches, keys are typed. What fingers did is told as lines of a
// script when the last of them lifts.
import {waitOf} from './notes.js';

const firmForce = 5;
const touchSlop = 10;    // points: what moves less is a tap
const tapTime = 300;     // milliseconds: what is held for longer is no tap
const lineTime = 50;     // milliseconds: of moves that are nearer the last is written down

// `notes` are told of what is done: note (lines, and when they began and ended) and noteKey; none for a phone whose steps
// nobody keeps.
export function takeInHand(screen, link, notes = null) {
  const canvas = screen.canvas;
  const fingers = new Map();
  let firm = false, done = null;

  const forceOf = (event) =>
      (firm ? firmForce : event.pointerType === 'pen' && event.pressure > 0 ? event.pressure * firmForce : 1);

  function freeNumber() {
    const taken = new Set([...fingers.values()].flatMap(({numbers}) => numbers));
    return [...Array(10).keys()].find((number) => !taken.has(number)) ?? 9;
  }

  const opposite = ({x, y}) => ({x: screen.points.width - x, y: screen.points.height - y});

  function touch(numbers, phase, at, force) {
    const places = [at, opposite(at)];
    numbers.forEach((number, i) => {
      link.send({type: 'finger', id: number, phase, ...places[i], force});
      done.push({number, phase, at: places[i], force, time: performance.now()});
    });
  }

  canvas.addEventListener('pointerdown', (event) => {
    if (event.button !== 0) return;
    canvas.focus();
    canvas.setPointerCapture(event.pointerId);
    if (fingers.size === 0) done = [];
    const at = screen.place(event), finger = {numbers: [freeNumber()], at};
    fingers.set(event.pointerId, finger);
    if (event.shiftKey) finger.numbers.push(freeNumber());
    touch(finger.numbers, 'down', at, forceOf(event));
    event.preventDefault();
  });

  canvas.addEventListener('pointermove', (event) => {
    const finger = fingers.get(event.pointerId);
    if (!finger) return;
    finger.at = screen.place(event);
    touch(finger.numbers, 'move', finger.at, forceOf(event));
  });

  function lift(event) {
    const finger = fingers.get(event.pointerId);
    if (!finger) return;
    touch(finger.numbers, 'up', screen.place(event), 0);
    fingers.delete(event.pointerId);
    if (fingers.size === 0) notes?.note(linesOf(done), done[0].time, done.at(-1).time);
  }
  canvas.addEventListener('pointerup', lift);
  canvas.addEventListener('pointercancel', lift);
  canvas.addEventListener('contextmenu', (event) => event.preventDefault());

  canvas.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey || event.key === 'Tab') return;
    if (event.key === 'f' && !firm) {
      firm = true;
      for (const finger of fingers.values()) touch(finger.numbers, 'move', finger.at, firmForce);
    }
    if (fingers.size === 0 && (event.key.length === 1 || event.key === 'Backspace' || event.key === 'Enter')) {
      // No field may be edited, and nothing typed.
      link.ask({type: 'key', key: event.key}).then((isTyped) => isTyped && notes?.noteKey(event.key), () => {});
    }
    event.preventDefault();
  });
  const loosen = () => (firm = false);
  window.addEventListener('keyup', (event) => {
    if (event.key === 'f') loosen();
  });
  window.addEventListener('blur', loosen);
}

const rounded = (value) => +value.toFixed(1);
const written = ({x, y}) => `${rounded(x)} ${rounded(y)}`;
const farFrom = (one) => (other) => Math.hypot(other.at.x - one.at.x, other.at.y - one.at.y) >= touchSlop;

// The step that does what fingers did, or each of their touches where there is none.
function linesOf(touches) {
  const numbers = [...new Set(touches.map(({number}) => number))];
  const paths = numbers.map((number) => touches.filter((each) => each.number === number));
  const [first] = paths, from = first[0], to = first.at(-1);
  const took = to.time - from.time, force = Math.max(...touches.map((each) => each.force));
  const isStill = paths.every((path) => path.length > 0 && !path.some(farFrom(path[0])));
  const isPlain = paths.every((path) => path.filter(({phase}) => phase === 'down').length === 1);
  if (isPlain && numbers.length === 2 && isStill && took < tapTime) return [`two-finger-tap ${written(from.at)}`];
  if (!isPlain || numbers.length > 1) return touchByTouch(touches);
  if (isStill && force > 1) return [`press ${rounded(force)} ${written(from.at)}`];
  if (isStill && took < tapTime) return [`tap ${written(from.at)}`];
  return [`drag ${written(from.at)} ${written(to.at)} ${Math.max(0.05, took / 1000).toFixed(2)}`];
}

function touchByTouch(touches) {
  const lines = [], shown = new Map();
  let now = touches[0].time;
  for (const [i, {number, phase, at, force, time}] of touches.entries()) {
    const next = touches.slice(i + 1).find((each) => each.number === number);
    if (phase === 'move' && next?.phase === 'move' && next.time - shown.get(number) < lineTime) continue;
    shown.set(number, time);
    if (time - now >= 10) {
      lines.push(waitOf(time - now));
      now = time;
    }
    lines.push(`finger ${number} ${phase} ${written(at)}${force > 1 ? ` ${rounded(force)}` : ''}`);
  }
  return lines;
}
