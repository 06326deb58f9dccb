import { CommandQueue } from "./command_queue.js";

// Runs as a worker: the next command goes as soon as the last one is answered, also while the page makes a picture.

const queue = new CommandQueue((answer) => self.postMessage(answer));
self.onmessage = ({ data }) => queue.add(data);
