// What is done on the page is written down as steps of a script, with the time between, so that it can be done again.
import {element} from './dom.js';

const leastWait = 50, mostWait = 5000;  // milliseconds
const longestPause = 2000;              // milliseconds between keys of one step

let end = 0;  // of what was done last

/** Lines for what went on from one moment until another; without any it took no time. */
export function note(lines, from = performance.now(), to = from) {
  const script = element('script'), pause = from - end;
  if (script.value && !script.value.endsWith('\n')) script.value += '\n';
  if (script.value && pause >= leastWait) lines = [waitOf(pause), lines].flat();
  write(script.value + [lines, ''].flat().join('\n'), to);
}

/** Keys that are pressed one behind the other are one step. */
export function noteKey(key) {
  const other = {Backspace: 'key delete', Enter: 'key return'}[key];
  if (other) return note(other);
  const letter = key.replace(/["\\]/, '\\$&'), typed = /^keys "(.*)"$/.exec(lastLine());
  if (typed && performance.now() - end < longestPause) replaceLast(`keys "${typed[1]}${letter}"`);
  else note(`keys "${letter}"`);
}

/** Of a slider that is dragged the last value is left. */
export function noteSetting(key, value) {
  const line = `set ${key}=${typeof value === 'boolean' ? (value ? 'YES' : 'NO') : value}`;
  if (lastLine().startsWith(`set ${key}=`)) replaceLast(line);
  else note(line);
}

export const waitOf = (milliseconds) => `wait ${+(Math.min(milliseconds, mostWait) / 1000).toFixed(2)}`;

const lastLine = () => element('script').value.trimEnd().split('\n').at(-1);

function replaceLast(line) {
  write(element('script').value.trimEnd().split('\n').with(-1, line).join('\n') + '\n', performance.now());
}

function write(text, moment) {
  const script = element('script');
  script.value = text;
  script.scrollTop = script.scrollHeight;
  end = moment;
}
