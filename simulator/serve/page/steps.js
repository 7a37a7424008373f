// The steps of what is done: written down as lines of a script, to be edited, run again and downloaded.
import {download, element} from './dom.js';

export function note(line) {
  const script = element('script');
  script.value += (script.value && !script.value.endsWith('\n') ? '\n' : '') + line + '\n';
  script.scrollTop = script.scrollHeight;
}

export function outcome(text, wrong = false) {
  element('outcome').textContent = text;
  element('outcome').className = wrong ? 'wrong' : '';
}

export function bindSteps(link) {
  element('clear').onclick = () => {
    element('script').value = '';
    outcome('');
  };
  element('run').onclick = async () => {
    const lines = element('script').value.split('\n');
    try {
      for (const [index, line] of lines.entries()) {
        outcome(`Step ${index + 1}: ${line}`);
        await link.step(line);
      }
      outcome('Done');
    } catch (error) {
      outcome(`${element('outcome').textContent}: ${error.message}`, true);
    }
  };
  element('download').onclick = () =>
      download('steps.txt', new Blob([element('script').value], {type: 'text/plain'}));
}
