// Hands on a phone: mouse, pen and fingers become touches, keys are typed. What fingers did is told as a line of a
// script when they lift.
const firmForce = 5;

export function takeInHand(screen, link, note = () => {}) {
  const canvas = screen.canvas;
  const fingers = new Map();
  let firm = false;

  const forceOf = (event) =>
      (firm ? firmForce : event.pointerType === 'pen' && event.pressure > 0 ? event.pressure * firmForce : 1);

  function freeNumber() {
    const taken = new Set([...fingers.values()].flatMap(({numbers}) => numbers));
    return [...Array(10).keys()].find((number) => !taken.has(number)) ?? 9;
  }

  const opposite = ({x, y}) => ({x: screen.points.width - x, y: screen.points.height - y});

  function touch(numbers, phase, at, force) {
    const places = [at, opposite(at)];
    numbers.forEach((number, i) => link.send({type: 'finger', id: number, phase, ...places[i], force}));
  }

  canvas.addEventListener('pointerdown', (event) => {
    if (event.button !== 0) return;
    canvas.focus();
    canvas.setPointerCapture(event.pointerId);
    const at = screen.place(event);
    const finger =
        {numbers: [freeNumber()], from: at, at, since: performance.now(), farthest: 0, force: forceOf(event)};
    fingers.set(event.pointerId, finger);
    if (event.shiftKey) finger.numbers.push(freeNumber());
    touch(finger.numbers, 'down', at, forceOf(event));
    event.preventDefault();
  });

  canvas.addEventListener('pointermove', (event) => {
    const finger = fingers.get(event.pointerId);
    if (!finger) return;
    finger.at = screen.place(event);
    finger.force = Math.max(finger.force, forceOf(event));
    finger.farthest = Math.max(finger.farthest, Math.hypot(finger.at.x - finger.from.x, finger.at.y - finger.from.y));
    touch(finger.numbers, 'move', finger.at, forceOf(event));
  });

  function lift(event) {
    const finger = fingers.get(event.pointerId);
    if (!finger) return;
    const at = screen.place(event);
    touch(finger.numbers, 'up', at, 0);
    fingers.delete(event.pointerId);
    if (event.type === 'pointerup') note(lineOf(finger, at));
  }
  canvas.addEventListener('pointerup', lift);
  canvas.addEventListener('pointercancel', lift);
  canvas.addEventListener('contextmenu', (event) => event.preventDefault());

  canvas.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey || event.key === 'Tab') return;
    if (event.key === 'f' && !firm && fingers.size > 0) {
      firm = true;
      for (const finger of fingers.values()) {
        finger.force = firmForce;
        touch(finger.numbers, 'move', finger.at, firmForce);
      }
    } else if (fingers.size === 0 && (event.key.length === 1 || event.key === 'Backspace' || event.key === 'Enter')) {
      link.send({type: 'key', key: event.key});
    }
    event.preventDefault();
  });
  window.addEventListener('keyup', (event) => {
    if (event.key === 'f') firm = false;
  });
}

function lineOf(finger, at) {
  const number = (value) => +value.toFixed(1);
  const seconds = Math.max(0.05, (performance.now() - finger.since) / 1000);
  const [x, y] = [number(finger.from.x), number(finger.from.y)];
  if (finger.numbers.length > 1) return `two-finger-tap ${x} ${y}`;
  if (finger.force >= firmForce) return `press ${finger.force} ${x} ${y}`;
  if (finger.farthest < 10) return `tap ${x} ${y}`;
  return `drag ${x} ${y} ${number(at.x)} ${number(at.y)} ${seconds.toFixed(2)}`;
}
