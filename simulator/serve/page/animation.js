// Pictures in WebP's format, one after another, as one animation: each is cut out of its file, and put into another
// one with its place and its time.
const letters = (text) => Uint8Array.from(text, (letter) => letter.charCodeAt(0));
const number = (value, bytes) => Uint8Array.from({length: bytes}, (_, i) => (value >>> (8 * i)) & 0xff);

function joined(parts) {
  const all = new Uint8Array(parts.reduce((sum, {length}) => sum + length, 0));
  let at = 0;
  for (const part of parts) {
    all.set(part, at);
    at += part.length;
  }
  return all;
}

function chunk(name, ...parts) {
  const contents = joined(parts);
  return joined([letters(name), number(contents.length, 4), contents, new Uint8Array(contents.length % 2)]);
}

// The chunks of a file that are the picture itself, as they are.
function pictureIn(file) {
  const view = new DataView(file.buffer, file.byteOffset, file.byteLength), found = [];
  for (let at = 12; at + 8 <= file.length;) {
    const name = String.fromCharCode(...file.subarray(at, at + 4)), length = view.getUint32(at + 4, true);
    const end = at + 8 + length + (length % 2);
    if (['ALPH', 'VP8 ', 'VP8L'].includes(name)) found.push(file.subarray(at, end));
    at = end;
  }
  if (found.length === 0) throw new Error('this browser makes no pictures in WebP\'s format');
  return found;
}

/** Of pictures with `file` (bytes), `width`, `height` (pixels) and `duration` (milliseconds). */
export function animationOf(pictures) {
  const width = Math.max(...pictures.map((each) => each.width));
  const height = Math.max(...pictures.map((each) => each.height));
  const isOneSize = pictures.every((each) => each.width === width && each.height === height);
  const flags = 0b10 | (isOneSize ? 0 : 0b01);  // not blended; a smaller one leaves nothing behind
  const frames = pictures.map((each) => chunk(
      'ANMF', number((width - each.width) >> 2, 3), number((height - each.height) >> 2, 3), number(each.width - 1, 3),
      number(each.height - 1, 3), number(each.duration, 3), number(flags, 1), ...pictureIn(each.file)));
  const header = chunk('VP8X', number(0b10, 4), number(width - 1, 3), number(height - 1, 3));
  const contents = joined([letters('WEBP'), header, chunk('ANIM', number(0xff000000, 4), number(0, 2)), ...frames]);
  return joined([letters('RIFF'), number(contents.length, 4), contents]);
}
