// The steps of what is done, as lines of a script: to be edited, run again, saved and downloaded.
import {download, element} from './dom.js';

export function outcome(text, wrong = false) {
  element('outcome').textContent = text;
  element('outcome').className = wrong ? 'wrong' : '';
}

/** Does what may go wrong, and says what came of it. */
export async function attempt(work, done = '') {
  try {
    await work();
    outcome(done);
  } catch (error) {
    outcome(error.message, true);
  }
}

export class Steps {
  #link;
  #saved = {};

  constructor(link) {
    this.#link = link;
    element('clear').onclick = () => {
      element('script').value = '';
      outcome('');
    };
    element('run').onclick = () => this.#run();
    element('download').onclick = () =>
        download('steps.txt', new Blob([element('script').value], {type: 'text/plain'}));
    element('saved').onchange = ({target}) => {
      if (!(target.value in this.#saved)) return;
      element('script').value = this.#saved[target.value];
      element('steps-name').value = target.value;
    };
    element('save').onclick = () => attempt(() => this.#save(), 'Saved');
  }

  /** Those that are saved go along with the device's files. */
  async begin() {
    try {
      this.#show(await this.#link.ask({type: 'saved-steps'}));
    } catch {
      // the home screen is on its way
    }
  }

  async #run() {
    const lines = element('script').value.split('\n');
    element('run').disabled = true;
    try {
      for (const [index, line] of lines.entries()) {
        outcome(`Step ${index + 1}: ${line}`);
        await this.#link.step(line);
      }
      outcome('Done');
    } catch (error) {
      outcome(`${element('outcome').textContent}: ${error.message}`, true);
    }
    element('run').disabled = false;
  }

  async #save() {
    const name = element('steps-name').value.trim();
    await this.#link.ask({type: 'save-steps', name, text: element('script').value});
    this.#show(await this.#link.ask({type: 'saved-steps'}), name);
  }

  #show(saved, name = '') {
    this.#saved = saved;
    const names = Object.keys(saved);
    element('saved').replaceChildren(new Option('Saved steps', ''),
                                     ...names.map((each) => new Option(each, each, false, each === name)));
    element('saved').disabled = names.length === 0;
  }
}
