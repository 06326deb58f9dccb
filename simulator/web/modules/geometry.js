// Frames are [x, y, width, height] in screen points.

export const place = (frame, origin) => ({
    left: `${frame[0] - origin[0]}px`,
    top: `${frame[1] - origin[1]}px`,
    width: `${frame[2]}px`,
    height: `${frame[3]}px`,
});

export const middle = (frame) => [frame[0] + frame[2] / 2, frame[1] + frame[3] / 2];

export const clamped = (value, least, most) => Math.max(least, Math.min(value, most));

// The nearest point within the frame. Its right and lower edges belong to what lies beyond.
export const nearestIn = ([x, y, width, height], point) =>
    [clamped(point[0], x, x + width - 1), clamped(point[1], y, y + height - 1)];

export const distance = (one, other) => Math.hypot(one[0] - other[0], one[1] - other[1]);

// How much of a frame lies in another, in square points.
export function overlap(one, other) {
    const width = Math.min(one[0] + one[2], other[0] + other[2]) - Math.max(one[0], other[0]);
    const height = Math.min(one[1] + one[3], other[1] + other[3]) - Math.max(one[1], other[1]);
    return Math.max(0, width) * Math.max(0, height);
}

export function union(frames) {
    const left = Math.min(...frames.map((frame) => frame[0]));
    const top = Math.min(...frames.map((frame) => frame[1]));
    return [left, top, Math.max(...frames.map((frame) => frame[0] + frame[2])) - left,
        Math.max(...frames.map((frame) => frame[1] + frame[3])) - top];
}
