// The screen of a home on a canvas: frames come as changed tiles, and are drawn in their order, each as a whole.
const codecs = ['image/jpeg', 'image/webp'];
const leastRim = 48;  // of the window, on a phone

export class Screen extends EventTarget {
  points = {width: 1, height: 1};
  #context;
  #last = Promise.resolve();
  #era = 0;

  // Each frame that is drawn is an event "drawn", with the frame's number as its detail.
  constructor(canvas) {
    super();
    this.canvas = canvas;
    this.#context = canvas.getContext('2d', {alpha: false});
  }

  // Frames on the way are of a home screen that has gone.
  reset() {
    ++this.#era;
  }

  push(data) {
    const era = this.#era, decoded = decode(data);
    this.#last = this.#last.then(async () => {
      const frame = await decoded;
      if (era === this.#era) this.#draw(frame);
      frame.sheet.close();
    }).catch((error) => this.dispatchEvent(new CustomEvent('lost', {detail: error.message})));
  }

  #draw(frame) {
    const canvas = this.canvas;
    if (canvas.width !== frame.width || canvas.height !== frame.height) {
      canvas.width = frame.width;
      canvas.height = frame.height;
    }
    const {width, height} = this.points;
    this.points = frame.points;
    for (const {from, to, width} of frame.runs)
      this.#context.drawImage(frame.sheet, from.x, from.y, width, frame.side, to.x, to.y, width, frame.side);
    canvas.dataset.frame = frame.number;
    if (width !== frame.points.width || height !== frame.points.height) this.dispatchEvent(new Event('resize'));
    this.dispatchEvent(new CustomEvent('drawn', {detail: frame.number}));
  }

  // A point of the screen, of one in the window.
  place({clientX, clientY}) {
    const box = this.canvas.getBoundingClientRect();
    return {
      x: ((clientX - box.left) / box.width) * this.points.width,
      y: ((clientY - box.top) / box.height) * this.points.height,
    };
  }
}

// All tiles of a frame are in one picture, its sheet. Those that are neighbours there and on the screen are drawn as one.
async function decode(data) {
  const view = new DataView(data);
  let at = 0;
  const u8 = () => view.getUint8(at++);
  const u16 = () => view.getUint16((at += 2) - 2, true);
  const u32 = () => view.getUint32((at += 4) - 4, true);
  const frame = {number: u32(), width: u16(), height: u16(), points: {width: u16(), height: u16()}, runs: []};
  const type = codecs[u8()], side = frame.side = u8(), across = u16(), count = u16();
  for (let i = 0; i < count; ++i) {
    const from = {x: (i % across) * side, y: Math.floor(i / across) * side}, to = {x: u8() * side, y: u8() * side};
    const run = frame.runs.at(-1);
    if (run && from.x > 0 && to.y === run.to.y && to.x === run.to.x + run.width) run.width += side;
    else frame.runs.push({from, to, width: side});
  }
  const sheet = new Blob([new Uint8Array(data, at)], {type});
  frame.sheet = await createImageBitmap(sheet, {colorSpaceConversion: 'none', premultiplyAlpha: 'none'});
  return frame;
}

// As large as the devices, side by side, or as the window allows: with one zoom for all that are shown, which is answered.
export function fit(all) {
  const screens = all.filter(({canvas}) => canvas.getClientRects().length > 0);
  const {clientWidth, clientHeight} = document.documentElement;  // without scroll bars
  const filled = getComputedStyle(document.documentElement).getPropertyValue('--filled') !== '';
  // Beside it, where there is room for it: what page.css calls `aside`.
  const beside = window.innerWidth > 1000 ? 486 : 0;
  const gaps = filled ? 0 : 40 + 54 * screens.length + beside;
  const room = {width: clientWidth - gaps, height: clientHeight - (filled ? 0 : 190)};
  const width = screens.reduce((sum, {points}) => sum + points.width, 0);
  const height = Math.max(...screens.map(({points}) => points.height));
  let most = Math.min(filled ? 4 : 1, room.width / width, room.height / height);
  // Fingers on the screen do not scroll: somewhere else they have to.
  if (filled && room.width - most * width < leastRim && room.height - most * height < leastRim)
    most = Math.min(room.width / width, (room.height - leastRim) / height);
  const zoom = filled ? most : Math.floor(100 * most) / 100;
  for (const {canvas, points} of screens) {
    canvas.style.width = `${points.width * zoom}px`;
    canvas.style.height = `${points.height * zoom}px`;
  }
  return zoom;
}
