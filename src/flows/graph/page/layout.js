// Where nodes stand: in columns, those that nobody needs on the left, what they need to the right of
// them. The places follow from the graph alone. The time is that of sorting.

const COLUMN_WIDTH = 4;
const PART_WIDTH = 2.4;   // between the parts of one column
const BAND_GAP = 2;
const MOST_STRETCHED = 3;  // the height of a row
const ASPECT = 1.6;        // wanted of the whole
const SWEEPS = 4;

// Which edges close a cycle, for a walk in the order of the nodes; the others lead ever deeper.
function backEdges(count, outgoing, edges) {
    const NEW = 0, ENTERED = 1, LEFT = 2;
    const state = new Uint8Array(count);
    const nextEdge = new Uint32Array(count);
    const isBack = new Uint8Array(edges.length);
    for (let root = 0; root < count; ++root) {
        if (state[root] !== NEW) continue;
        const path = [root];
        state[root] = ENTERED;
        while (path.length) {
            const at = path[path.length - 1];
            if (nextEdge[at] === outgoing[at].length) {
                state[at] = LEFT;
                path.pop();
                continue;
            }
            const edge = outgoing[at][nextEdge[at]++];
            const to = edges[edge].to;
            if (state[to] === ENTERED) isBack[edge] = 1;
            if (state[to] !== NEW) continue;
            state[to] = ENTERED;
            path.push(to);
        }
    }
    return isBack;
}

// How many nodes stand in front of each at most.
function depthsOf(count, outgoing, edges) {
    const isBack = backEdges(count, outgoing, edges);
    const waiting = new Uint32Array(count);
    edges.forEach((edge, place) => { if (!isBack[place]) ++waiting[edge.to]; });
    const depths = new Uint32Array(count);
    const ready = [];
    for (let node = 0; node < count; ++node) if (!waiting[node]) ready.push(node);
    for (let at = 0; at < ready.length; ++at)
        for (const edge of outgoing[ready[at]]) {
            if (isBack[edge]) continue;
            const to = edges[edge].to;
            depths[to] = Math.max(depths[to], depths[ready[at]] + 1);
            if (--waiting[to] === 0) ready.push(to);
        }
    return depths;
}

// Sorts each column by where the neighbours of its nodes are, from one side and from the other.
function sortColumns(columns, neighbors) {
    const height = new Float64Array(neighbors.length);
    const settle = (column) => column.forEach((node, row) => { height[node] = (row + 0.5) / column.length; });
    columns.forEach(settle);
    for (let sweep = 0; sweep < SWEEPS; ++sweep) {
        const order = sweep % 2 ? [...columns].reverse() : columns;
        for (const column of order) {
            const wanted = new Map(column.map((node) => [node, neighbors[node].length
                ? neighbors[node].reduce((sum, other) => sum + height[other], 0) / neighbors[node].length
                : height[node]]));
            column.sort((one, other) => wanted.get(one) - wanted.get(other) || one - other);
            settle(column);
        }
    }
}

// Where `count` nodes stand: `positions` {x, y}, y growing upwards, in a field of `width` and `height`
// with rows `rowHeight` apart.
function layOut(count, edges) {
    const outgoing = Array.from({length: count}, () => []);
    const neighbors = Array.from({length: count}, () => []);
    edges.forEach((edge, place) => {
        outgoing[edge.from].push(place);
        neighbors[edge.from].push(edge.to);
        neighbors[edge.to].push(edge.from);
    });
    const depths = depthsOf(count, outgoing, edges);
    const columns = [];
    const alone = [];
    for (let node = 0; node < count; ++node) {
        if (!neighbors[node].length) {
            alone.push(node);
            continue;
        }
        (columns[depths[node]] = columns[depths[node]] || []).push(node);
    }
    sortColumns(columns, neighbors);
    return placeBands(count, bandsOf(count, columns), alone);
}

// A column that is too long has several parts beside each other, and when there are too many columns
// they go on below, like the lines of a text: bands of columns {nodes, parts, rows}.
function bandsOf(count, columns) {
    const longest = Math.max(8, Math.ceil(Math.sqrt(count * PART_WIDTH / ASPECT)));
    const shaped = columns.map((nodes) => {
        const parts = Math.ceil(nodes.length / longest);
        return {nodes, parts, rows: Math.ceil(nodes.length / parts), width: COLUMN_WIDTH + (parts - 1) * PART_WIDTH};
    });
    const width = shaped.reduce((sum, column) => sum + column.width, 0);
    const rows = shaped.reduce((most, column) => Math.max(most, column.rows), 1);
    const bands = Math.max(1, Math.round(Math.sqrt(width / (ASPECT * MOST_STRETCHED * (rows + BAND_GAP)))));
    const result = [];
    let filled = 0;
    for (const column of shaped) {
        const band = Math.min(bands - 1, Math.floor(filled / width * bands));
        (result[band] = result[band] || []).push(column);
        filled += column.width;
    }
    return result.filter(Boolean);
}

function placeBands(count, bands, alone) {
    const positions = new Array(count);
    let width = 0;
    let top = 0;
    for (const band of bands) {
        const rows = Math.max(...band.map((column) => column.rows));
        let x = 0;
        for (const column of band) {
            column.nodes.forEach((node, number) => {
                const row = Math.floor(number / column.parts);
                const part = number % column.parts;
                // Those of one row stand a little apart in height, too: so do their edges.
                positions[node] = {x: x + part * PART_WIDTH,
                    y: top - (rows - column.rows) / 2 - row - part / column.parts};
            });
            x += column.width;
        }
        width = Math.max(width, x);
        top -= rows + BAND_GAP;
    }
    const perRow = Math.max(Math.round(width / COLUMN_WIDTH), Math.ceil(Math.sqrt(alone.length * ASPECT / COLUMN_WIDTH)), 1);
    alone.forEach((node, number) => {
        positions[node] = {x: (number % perRow) * COLUMN_WIDTH, y: top - Math.floor(number / perRow)};
    });
    width = Math.max(width, Math.min(alone.length, perRow) * COLUMN_WIDTH);
    const rows = Math.max(1, Math.ceil(alone.length / perRow) - top);
    const rowHeight = Math.min(MOST_STRETCHED, Math.max(1, width / ASPECT / rows));
    for (const position of positions) position.y *= rowHeight;
    return {positions, width, height: rows * rowHeight, rowHeight};
}
