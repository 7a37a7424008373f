// "Record": the screen as it is drawn, as an animation that is downloaded when the button is pressed again.
import {animationOf} from './animation.js';
import {download, element} from './dom.js';
import {attempt} from './steps.js';

const leastInterval = 33;     // milliseconds between pictures
const longest = 120_000;      // milliseconds
const mostBytes = 200 << 20;  // of pictures
const quality = 0.85;

class Recording {
  #canvas;
  #pictures = [];
  #bytes = 0;
  #encoding = Promise.resolve();
  #isBusy = false;
  #isDue = true;
  start = performance.now();

  constructor(canvas) {
    this.#canvas = canvas;
    this.take();
  }

  get isFull() {
    return performance.now() - this.start > longest || this.#bytes > mostBytes;
  }

  // A picture of what there is to see, as soon as the one before is done; what is missed meanwhile is in the next.
  take() {
    this.#isDue = true;
    if (!this.#isBusy) this.#encoding = this.#takeAll();
  }

  async #takeAll() {
    this.#isBusy = true;
    while (this.#isDue) {
      this.#isDue = false;
      const {width, height} = this.#canvas, time = performance.now();
      const blob = await new Promise((resolve) => this.#canvas.toBlob(resolve, 'image/webp', quality));
      const file = new Uint8Array(await blob.arrayBuffer());
      this.#pictures.push({file, width, height, time});
      this.#bytes += file.length;
      const rest = leastInterval - (performance.now() - time);
      if (rest > 0) await new Promise((resolve) => setTimeout(resolve, rest));
    }
    this.#isBusy = false;
  }

  async finish() {
    await this.#encoding;
    const end = performance.now();
    const times = [...this.#pictures.map(({time}) => time), end];
    return animationOf(this.#pictures.map((each, i) => ({...each, duration: Math.max(1, Math.round(times[i + 1] - times[i]))})));
  }
}

export function bindRecord(screen) {
  const button = element('record');
  let recording = null;

  async function finish() {
    const done = recording;
    recording = null;
    button.ariaPressed = false;
    await attempt(async () => download('home.webp', new Blob([await done.finish()], {type: 'image/webp'})));
  }

  screen.addEventListener('drawn', () => {
    recording?.take();
    if (recording?.isFull) finish();
  });
  button.onclick = () => {
    if (recording) return finish();
    recording = new Recording(screen.canvas);
    button.ariaPressed = true;
  };
}
