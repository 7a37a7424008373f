// The connection between a page and a home screen: questions and their answers, news, frames.
const hasEnded = 'the connection has ended';

export class Link {
  #socket;
  #answers = new Map();
  #next = 1;
  #hearer;
  #unsent = [];  // until the connection is there

  // What comes is heard by functions of `hearer`, each of which may be missing: started, ended, refused (with the
  // message), frame (with its bytes), closed (with the reason).
  constructor(path, hearer, protocol = 'tilo') {
    this.#hearer = hearer;
    this.#socket = new WebSocket(new URL(path, location.href.replace(/^http/, 'ws')), protocol);
    this.#socket.binaryType = 'arraybuffer';
    this.#socket.onmessage = ({data}) =>
        (typeof data === 'string' ? this.#hear(JSON.parse(data)) : hearer.frame?.(data));
    this.#socket.onopen = () => {
      for (const text of this.#unsent.splice(0)) this.#socket.send(text);
    };
    this.#socket.onclose = ({reason}) => {
      this.#giveUp(Infinity, hasEnded);
      hearer.closed?.(reason);
    };
  }

  send(message) {
    const {readyState} = this.#socket, text = JSON.stringify(message);
    if (readyState === WebSocket.OPEN) this.#socket.send(text);
    else if (readyState === WebSocket.CONNECTING) this.#unsent.push(text);
  }

  ask(message) {
    return new Promise((resolve, reject) => {
      if (this.#socket.readyState > WebSocket.OPEN) return reject(new Error(hasEnded));
      const id = this.#next++;
      this.#answers.set(id, {resolve, reject});
      this.send({...message, id});
    });
  }

  step(line) {
    return this.ask({type: 'step', step: line});
  }

  close() {
    this.#socket.close();
  }

  #hear(message) {
    switch (message.type) {
      case 'done':
      case 'answer':
      case 'report': {
        const answer = this.#answers.get(message.id);
        this.#answers.delete(message.id);
        if (message.error) answer?.reject(new Error(message.error));
        else answer?.resolve(message.report ?? message.answer);
        break;
      }
      case 'ended':
        this.#giveUp(message.asked, message.reason);
        this.#hearer.ended?.(message);
        break;
      case 'started':
        this.#giveUp(message.asked ?? 0, 'SpringBoard has started anew');
        this.#hearer.started?.(message);
        break;
      case 'refused': {
        const answer = this.#answers.get(message.id);
        this.#answers.delete(message.id);
        if (answer) answer.reject(new Error(message.reason));
        else this.#hearer.refused?.(message);
        break;
      }
    }
  }

  // Questions up to a number, which nobody answers any more.
  #giveUp(last, reason) {
    for (const [id, {reject}] of this.#answers) {
      if (id > last) continue;
      this.#answers.delete(id);
      reject(new Error(reason));
    }
  }
}
