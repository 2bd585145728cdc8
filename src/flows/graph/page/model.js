'use strict';

// What the graph is: files, what they need, and which of them are seen while folders are closed.

const NONE = -1;
// With more files than that the folders are closed at first.
const MANY_FILES = 400;

class GraphModel {
    constructor(data) {
        this.title = data.title;
        this.by = data.by;
        this.libraries = data.libraries;
        this.folders = data.folders;
        this.nodes = data.nodes.map(([name, library, folder, fileCount, isListed, cycle], place) => (
            {place, name, library, folder, fileCount, isListed: isListed === 1, cycle, needs: [], neededBy: []}));
        this.edges = [];
        for (let at = 0; at < data.edges.length; at += 3) {
            const [from, to, count] = data.edges.slice(at, at + 3);
            const isOnCycle = this.nodes[from].cycle !== NONE && this.nodes[from].cycle === this.nodes[to].cycle;
            this.edges.push({from, to, count, isOnCycle});
            this.nodes[from].needs.push(to);
            this.nodes[to].neededBy.push(from);
        }
        this.cycles = new Map();
        for (const node of this.nodes) {
            if (node.cycle === NONE) continue;
            if (!this.cycles.has(node.cycle)) this.cycles.set(node.cycle, []);
            this.cycles.get(node.cycle).push(node);
        }
        this.nodesOnCycles = this.nodes.filter((node) => node.cycle !== NONE).length;
        this.hasFolders = this.by === 'file' && this.folders.length > 1;
        this.filesOfFolder = this.folders.map(() => []);
        if (this.by === 'file') for (const node of this.nodes) this.filesOfFolder[node.folder].push(node);
        this.prefix = this.commonPrefix();
        this.closed = new Set();
        if (this.hasFolders && this.nodes.length > MANY_FILES) this.closeAll();
    }

    // The folders that all names of folders begin with.
    commonPrefix() {
        const [first, ...rest] = this.folders.filter((_, folder) => this.filesOfFolder[folder].length);
        if (!rest.length) return '';
        let size = first.length;
        for (const folder of rest)
            while (!folder.startsWith(first.slice(0, size))) --size;
        return first.slice(0, Math.max(first.lastIndexOf('/', size - 1), first.lastIndexOf('\\', size - 1)) + 1);
    }

    // The short name that the drawing has: of a file without folders, of a folder without those that
    // all folders are in.
    shortName(item) {
        if (item.isFolder) return item.name.slice(this.prefix.length) || item.name;
        return this.fileNameOf(item.node);
    }

    // The name of a file without its folder.
    fileNameOf(node) {
        const folder = this.by === 'file' ? this.folders[node.folder] : '';
        return node.name.startsWith(folder) && folder !== '.' ? node.name.slice(folder.length).replace(/^[\\/]/, '') : node.name;
    }

    closeAll() {
        if (!this.hasFolders) return;
        this.folders.forEach((_, folder) => this.filesOfFolder[folder].length && this.closed.add(folder));
    }

    openAll() {
        this.closed.clear();
    }

    isClosed(node) {
        return this.hasFolders && this.closed.has(node.folder);
    }

    // The key of what is seen of a node: "n3", or "f1" for its closed folder.
    keyOf(node) {
        return this.isClosed(node) ? 'f' + node.folder : 'n' + node.place;
    }

    // The library of all nodes, NONE for several.
    libraryOf(nodes) {
        return nodes.every((node) => node.library === nodes[0].library) ? nodes[0].library : NONE;
    }

    // What is seen behind a key.
    seen(key) {
        const place = Number(key.slice(1));
        if (key[0] === 'n') {
            const node = this.nodes[place];
            return {key, node, name: node.name, library: node.library, fileCount: node.fileCount,
                isFolder: false, isListed: node.isListed, isOnCycle: node.cycle !== NONE};
        }
        const files = this.filesOfFolder[place];
        return {key, folder: place, name: this.folders[place], library: this.libraryOf(files),
            fileCount: files.length, isFolder: true, isListed: files.some((file) => file.isListed),
            isOnCycle: files.some((file) => file.cycle !== NONE)};
    }

    // All that is seen, with edges that name places in `items`.
    visible() {
        const places = new Map();
        const items = [];
        const placeOf = (node) => {
            const key = this.keyOf(node);
            if (!places.has(key)) {
                places.set(key, items.length);
                items.push(this.seen(key));
            }
            return places.get(key);
        };
        const placeOfNode = this.nodes.map(placeOf);
        const merged = new Map();
        for (const edge of this.edges) {
            const from = placeOfNode[edge.from];
            const to = placeOfNode[edge.to];
            if (from === to) continue;
            const key = from * items.length + to;
            const known = merged.get(key);
            if (!known) {
                merged.set(key, {from, to, count: edge.count, isOnCycle: edge.isOnCycle});
            } else {
                known.count += edge.count;
                known.isOnCycle = known.isOnCycle || edge.isOnCycle;
            }
        }
        return {items, edges: [...merged.values()]};
    }

    // The nodes whose names hold the text, those first whose file names begin with it.
    search(text) {
        const wanted = text.trim().toLowerCase();
        if (!wanted) return [];
        const first = [];
        const rest = [];
        for (const node of this.nodes) {
            const name = node.name.toLowerCase();
            if (!name.includes(wanted)) continue;
            (this.fileNameOf(node).toLowerCase().startsWith(wanted) ? first : rest).push(node);
        }
        return first.concat(rest);
    }
}
