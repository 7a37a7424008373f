// Choices of a device and of a system that it ran.
/** Fills both choices for what a home screen has said when it started. */
export function fillChoices(deviceChoice, systemChoice, {devices, device, ios}) {
  deviceChoice.replaceChildren(...devices.map(({name}) => new Option(name, name, false, name === device)));
  const model = devices.find((each) => each.name === device);
  systemChoice.replaceChildren(...systemsOf(model, ios).map((each) => new Option(each, each, false, each === ios)));
}

// Systems that are told apart by what they have: the first and the last that a model ran, and those between by their
// major versions.
function systemsOf(model, current) {
  const major = (text) => parseInt(text, 10);
  const between = [];
  for (let each = major(model.first) + 1; each < major(model.last); ++each) between.push(`${each}.0`);
  const all = new Set([model.first, ...between, '10.3.3', model.last, current]);
  const inRange = (text) => compare(text, model.first) >= 0 && compare(text, model.last) <= 0;
  return [...all].filter(inRange).sort(compare);
}

function compare(a, b) {
  const [one, other] = [a, b].map((text) => text.split('.').map(Number));
  for (let i = 0; i < 3; ++i) if ((one[i] ?? 0) !== (other[i] ?? 0)) return (one[i] ?? 0) - (other[i] ?? 0);
  return 0;
}
