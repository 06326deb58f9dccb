// Frames are [x, y, width, height] in screen points.

export const place = (frame, origin) => ({
    left: `${frame[0] - origin[0]}px`,
    top: `${frame[1] - origin[1]}px`,
    width: `${frame[2]}px`,
    height: `${frame[3]}px`,
});

export const contains = (frame, [x, y]) =>
    x >= frame[0] && x < frame[0] + frame[2] && y >= frame[1] && y < frame[1] + frame[3];

export const middle = (frame) => [frame[0] + frame[2] / 2, frame[1] + frame[3] / 2];

export function union(frames) {
    const left = Math.min(...frames.map((frame) => frame[0]));
    const top = Math.min(...frames.map((frame) => frame[1]));
    return [left, top, Math.max(...frames.map((frame) => frame[0] + frame[2])) - left,
        Math.max(...frames.map((frame) => frame[1] + frame[3])) - top];
}
