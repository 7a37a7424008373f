// Panels beside the phone, one at a time, chosen by tabs: by click, or by arrow keys while a tab has the focus.
import {element} from './dom.js';

const tabs = () => [...element('tabs').children].filter((tab) => !tab.hidden);

/** The panel that is shown. */
export const shownPanel = () => element('tabs').querySelector('[aria-selected="true"]').getAttribute('aria-controls');

export function showPanel(id) {
  for (const tab of element('tabs').children) {
    const isShown = tab.getAttribute('aria-controls') === id;
    tab.setAttribute('aria-selected', isShown);
    tab.tabIndex = isShown ? 0 : -1;
    element(tab.getAttribute('aria-controls')).hidden = !isShown;
  }
  element('tabs').dispatchEvent(new CustomEvent('panel', {detail: id}));
}

/** Whether there is such a panel at all. */
export function offerPanel(id, isThere) {
  element('tabs').querySelector(`[aria-controls="${id}"]`).hidden = !isThere;
  if (!isThere && shownPanel() === id) showPanel(tabs()[0].getAttribute('aria-controls'));
}

export function bindTabs() {
  element('tabs').addEventListener('click', ({target}) => {
    if (target.role === 'tab') showPanel(target.getAttribute('aria-controls'));
  });
  element('tabs').addEventListener('keydown', (event) => {
    const way = {ArrowLeft: -1, ArrowRight: 1}[event.key];
    if (!way) return;
    const all = tabs();
    const next = all[(all.indexOf(document.activeElement) + way + all.length) % all.length];
    showPanel(next.getAttribute('aria-controls'));
    next.focus();
    event.preventDefault();
  });
}
