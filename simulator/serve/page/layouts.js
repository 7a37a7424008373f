// The presets file: saved from the page, and another one used that is dropped on it or chosen.
import {download, element} from './dom.js';
import {attempt} from './steps.js';

const longest = 512 * 1024;  // bytes

export function bindLayouts(link) {
  const use = (file) => attempt(async () => {
    if (file.size > longest) throw new Error(`'${file.name}' is too long for a presets file`);
    await link.ask({type: 'use-presets', text: await file.text()});
    // Icons follow a layout's new numbers when SpringBoard starts.
    link.send({type: 'respring'});
  }, `The layouts of '${file.name}' are in use`);

  element('save-presets').onclick = () => attempt(async () => {
    const text = await link.ask({type: 'presets'});
    if (text === null) throw new Error('there is no presets file yet');
    download('config.json', new Blob([text], {type: 'application/json'}));
  });
  element('use-presets').onclick = () => element('presets').click();
  element('presets').onchange = ({target}) => {
    if (target.files.length > 0) use(target.files[0]);
    target.value = '';
  };

  // Anywhere on the page.
  const hasFiles = (event) => event.dataTransfer?.types.includes('Files');
  const mark = (on) => document.body.classList.toggle('dropping', on);
  window.addEventListener('dragover', (event) => {
    if (!hasFiles(event)) return;
    event.preventDefault();
    mark(true);
  });
  window.addEventListener('dragleave', (event) => {
    if (!event.relatedTarget) mark(false);
  });
  window.addEventListener('drop', (event) => {
    mark(false);
    if (!hasFiles(event)) return;
    event.preventDefault();
    use(event.dataTransfer.files[0]);
  });
}
