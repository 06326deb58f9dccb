import { Feed } from "./feed.js";

// Runs as a shared worker: all pages of a browser follow the Mac by one connection, of which a browser opens only few.

const pages = new Set();
const feed = new Feed((message) => pages.forEach((page) => page.postMessage(message)));

self.onconnect = ({ ports: [page] }) => {
    pages.add(page);
    page.onmessage = () => pages.delete(page); // the page says only that it goes
    if (feed.whole()) page.postMessage(feed.whole());
};
