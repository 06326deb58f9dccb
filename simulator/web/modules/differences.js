// Applies what the server sends instead of the whole tree: the counterpart of serve/tree_difference.h.
//
// A difference of an object or an array is an object. Each member names a place: [value] puts a value there, 0 takes the
// member away, and an object is the difference of what is there. An array's difference may first have
// "splice": [at, removed, [values]].

export function applied(tree, difference) {
    const result = Array.isArray(tree) ? [...tree] : { ...tree };
    for (const [place, change] of Object.entries(difference)) {
        if (Array.isArray(result) && place === "splice") result.splice(change[0], change[1], ...change[2]);
    }
    for (const [place, change] of Object.entries(difference)) {
        if (Array.isArray(result) && place === "splice") continue;
        if (change === 0) delete result[place];
        else result[place] = Array.isArray(change) ? change[0] : applied(result[place], change);
    }
    return result;
}
