// Makes sprite.svg from the table in modules/symbols.js: node make_sprite.mjs FOLDER, where the folder is the
// npm package lucide-static (version in ATTRIBUTION.md).
import { readFileSync, writeFileSync } from "node:fs";
import { dirname, join } from "node:path";
import { fileURLToPath } from "node:url";
import { pictureOfSymbol, picturesOfPage } from "../modules/symbols.js";

const here = dirname(fileURLToPath(import.meta.url));
const folder = process.argv[2];

function shapesOf(picture) {
    const isFilled = picture.endsWith("-fill");
    const file = join(folder, "icons", `${isFilled ? picture.slice(0, -"-fill".length) : picture}.svg`);
    const svg = readFileSync(file, "utf8");
    const shapes = svg.slice(svg.indexOf(">", svg.indexOf("<svg")) + 1, svg.lastIndexOf("</svg>"));
    const lines = shapes.split("\n").map((line) => line.trim()).filter(Boolean);
    if (!isFilled) return lines.join("");
    return lines.map((line, index) => (index === 0
        ? line.replace(/^<(\w+)/, '<$1 fill="currentColor"')
        : line.replace(/^<(\w+)/, '<$1 class="inside"'))).join("");
}

const pictures = [...new Set([...Object.values(pictureOfSymbol), ...picturesOfPage])].sort();
const symbols = pictures.map((picture) => `<symbol id="${picture}" viewBox="0 0 24 24" fill="none" `
    + `stroke="currentColor" stroke-width="2" stroke-linecap="round" stroke-linejoin="round">${shapesOf(picture)}</symbol>`);
writeFileSync(join(here, "sprite.svg"),
    `<svg xmlns="http://www.w3.org/2000/svg">\n<!-- Lucide, ISC and MIT licences: see ATTRIBUTION.md -->\n${symbols.join("\n")}\n</svg>\n`);
