// What every part of the page does with its document.
export const element = (id) => document.getElementById(id);

/** A new element with a class, a text and children. */
export function made(name, {text, ...rest} = {}, ...children) {
  const one = Object.assign(document.createElement(name), rest);
  if (text !== undefined) one.textContent = text;
  one.append(...children);
  return one;
}

/** A method's or class's name as parts to be made children: its lines break before capitals and behind colons alone. */
export function breakable(name) {
  const [first, ...rest] = name.split(/(?<=:)(?=.)|(?<=[a-z0-9])(?=[A-Z])/);
  return [first, ...rest.flatMap((part) => [made('wbr'), part])];
}

/** Hands a file to the person at the browser. */
export function download(name, contents) {
  const link = made('a', {href: URL.createObjectURL(contents), download: name});
  link.click();
  // The browser reads it after this.
  setTimeout(() => URL.revokeObjectURL(link.href), 60_000);
}
