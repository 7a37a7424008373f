// The screen of a home on a canvas: frames come as changed rectangles, and are drawn in their order, each as a whole.
const codecs = ['image/jpeg', 'image/webp'];

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
      frame.tiles.forEach(({image}) => image.close());
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
    for (const {image, x, y} of frame.tiles) this.#context.drawImage(image, x, y);
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
  const zoom = Math.min(filled ? 4 : 1, room.width / width, room.height / height);
  for (const {canvas, points} of screens) {
    canvas.style.width = `${points.width * zoom}px`;
    canvas.style.height = `${points.height * zoom}px`;
  }
  return zoom;
}
