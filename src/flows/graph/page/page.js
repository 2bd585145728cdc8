const LIBRARY_COLORS = 10;
const MOST_MATCHES = 50;
const MOST_LISTED = 200;
const MOST_ANIMATED = 2000;
const MOST_LABELS = 40;
const ARROW = {lengthToThicknessRatio: 6, widenessToThicknessRatio: 4.5};
const MANY_EDGES = 1500;
const MOST_MOVED_EDGES = 5000;
const ROOM_OF_NAME = 150;  // in pixels
const PADDING = 60;  // of the drawing, in pixels

const model = new GraphModel(JSON.parse(document.getElementById('data').textContent));
const byId = (id) => document.getElementById(id);

// An element with attributes and children, which are elements or texts.
function make(name, attributes = {}, ...children) {
    const element = document.createElement(name);
    for (const [key, value] of Object.entries(attributes))
        if (key === 'onclick') element.onclick = value;
        else element.setAttribute(key, value);
    element.append(...children);
    return element;
}

const counted = (count, one, many) => count.toLocaleString('en') + ' ' + (count === 1 ? one : many);
const filesText = (count) => counted(count, 'file', 'files');

// Colours come from the style sheet, which knows the scheme.
const dark = window.matchMedia('(prefers-color-scheme: dark)');
const calm = window.matchMedia('(prefers-reduced-motion: reduce)');
let colors = {};

function readColors() {
    const style = getComputedStyle(document.documentElement);
    const of = (name) => style.getPropertyValue('--' + name).trim();
    colors = {libraries: Array.from({length: LIBRARY_COLORS}, (_, place) => of('library-' + place))};
    for (const name of ['ground', 'panel', 'line', 'text', 'edge', 'faint', 'several', 'cycle']) colors[name] = of(name);
}

const libraryColor = (library) => library === NONE ? colors.several : colors.libraries[library % LIBRARY_COLORS];

// The view of the graph. Without WebGL there is none, and lists do.
const view = {
    renderer: null,
    graph: null,
    selected: null,   // a key
    around: new Set(),  // the selected key and its neighbours
    library: null,    // the one that the legend shows alone

    start() {
        this.graph = new graphology.DirectedGraph();
        this.fill();
        try {
            this.renderer = new Sigma(this.graph, byId('graph'), this.settings());
        } catch (_) {
            byId('graph').replaceChildren();
            byId('without-canvas').hidden = false;
            for (const id of ['zoom-in', 'zoom-out', 'fit']) byId(id).hidden = true;
            return;
        }
        this.renderer.on('clickNode', ({node}) => select(node));
        this.renderer.on('clickStage', () => select(null));
        this.renderer.on('doubleClickNode', (event) => {
            event.preventSigmaDefault();
            toggleFolder(event.node);
        });
        this.renderer.on('enterNode', () => this.showHovered(true));
        this.renderer.on('leaveNode', () => this.showHovered(false));
    },

    // The canvas of the name under the pointer is hidden when there is none: it may keep old pictures.
    showHovered(isHovered) {
        byId('graph').style.cursor = isHovered ? 'pointer' : '';
        this.renderer.getCanvases().hovers.style.visibility = isHovered ? '' : 'hidden';
    },

    settings() {
        const border = {size: {attribute: 'border', defaultValue: 0, mode: 'pixels'}, color: {attribute: 'borderColor'}};
        return {
            allowInvalidContainer: true,
            defaultNodeType: 'file',
            nodeProgramClasses: {
                file: Sigma.rendering.createNodeBorderProgram({
                    borders: [border, {size: {fill: true}, color: {attribute: 'color'}}]}),
            },
            nodeHoverProgramClasses: {},
            defaultEdgeType: 'need',
            edgeProgramClasses: {need: Sigma.rendering.createEdgeArrowProgram(ARROW)},
            labelFont: 'system-ui, sans-serif',
            labelSize: 12,
            labelColor: {attribute: 'labelColor'},
            labelDensity: 0.5,
            labelGridCellSize: 150,
            labelRenderedSizeThreshold: this.named,
            defaultDrawNodeLabel: drawLabel,
            stagePadding: PADDING,
            minCameraRatio: 0.005,
            maxCameraRatio: 4,
            zIndex: true,
            hideEdgesOnMove: this.graph.size > MOST_MOVED_EDGES,
            defaultDrawNodeHover: drawHovered,
            nodeReducer: (key, node) => this.shownNode(key, node),
            edgeReducer: (key, edge) => this.shownEdge(key, edge),
        };
    },

    // Puts what is seen now into the graph, where the layout has it.
    fill() {
        const {items, edges} = model.visible();
        const layout = layOut(items.length, edges);
        const old = new Map();
        this.graph.forEachNode((key, {x, y}) => old.set(key, {x, y}));
        this.graph.clear();
        const {base, most, named, zoom} = this.sizesIn(layout);
        Object.assign(this, {named, zoomOfNames: zoom});
        this.edgeColor = edges.length > MANY_EDGES ? 'line' : 'edge';
        items.forEach((item, place) => {
            const size = item.fileCount > 1 ? Math.min(base * (1 + Math.log2(item.fileCount) / 4), most) : base;
            const name = model.shortName(item);
            this.graph.addNode(item.key, {...layout.positions[place], size, item,
                label: item.fileCount > 1 ? name + ' (' + item.fileCount.toLocaleString('en') + ')' : name});
        });
        const thin = items.length > 100 ? 0.7 : 1;
        edges.forEach((edge) => this.graph.addEdge(items[edge.from].key, items[edge.to].key,
            {size: edge.isOnCycle ? 2 : thin * Math.min(1 + Math.log2(edge.count) / 8, 1.6), isOnCycle: edge.isOnCycle}));
        return old;
    },

    // The radius of a file and the largest one, so that nodes of one column do not meet, and the
    // radius and the zoom from which on names have room between two columns.
    sizesIn(layout) {
        const {clientWidth, clientHeight} = byId('graph');
        const unit = Math.min((clientWidth - 2 * PADDING) / layout.width, (clientHeight - 2 * PADDING) / Math.max(layout.height, 1));
        const base = Math.max(2, Math.min(7, 0.36 * layout.rowHeight * unit));
        return {base, most: Math.max(base, Math.min(18, 0.46 * layout.rowHeight * unit)),
            // Sizes grow with the root of the zoom.
            named: base * Math.sqrt(Math.max(1, ROOM_OF_NAME / (COLUMN_WIDTH * unit))) * 0.999,
            zoom: Math.min(1, COLUMN_WIDTH * unit / ROOM_OF_NAME)};
    },

    // What is seen has changed.
    refill() {
        const old = this.fill();
        this.mark();
        if (!this.renderer) return;
        this.renderer.setSetting('hideEdgesOnMove', this.graph.size > MOST_MOVED_EDGES);
        this.renderer.setSetting('labelRenderedSizeThreshold', this.named);
        const moved = {};
        if (!calm.matches && this.graph.order <= MOST_ANIMATED)
            this.graph.forEachNode((key, node) => {
                const before = old.get(key) || old.get('f' + (node.item.node ? node.item.node.folder : ''));
                if (!before || (before.x === node.x && before.y === node.y)) return;
                moved[key] = {x: node.x, y: node.y};
                this.graph.mergeNodeAttributes(key, before);
            });
        this.renderer.refresh();
        this.showHovered(false);
        if (Object.keys(moved).length) Sigma.utils.animateNodes(this.graph, moved, {duration: 350});
    },

    mark() {
        this.around = new Set();
        if (!this.selected || !this.graph.hasNode(this.selected)) return;
        this.around.add(this.selected);
        this.graph.forEachNeighbor(this.selected, (key) => this.around.add(key));
    },

    refresh() {
        if (this.renderer) this.renderer.refresh({skipIndexation: true});
    },

    isFaint(key, item) {
        if (this.selected) return !this.around.has(key);
        if (this.library === null) return false;
        return item.isFolder ? !model.filesOfFolder[item.folder].some((file) => file.library === this.library)
            : item.library !== this.library;
    },

    shownNode(key, node) {
        const {item} = node;
        const isFaint = this.isFaint(key, item);
        const color = isFaint ? colors.faint : libraryColor(item.library);
        const isSelected = key === this.selected;
        const border = item.isOnCycle ? 4 : item.isListed ? 0 : 2;
        return {...node,
            color: item.isListed ? color : colors.ground,
            border: isSelected && !item.isOnCycle ? 3 : border,
            borderColor: item.isOnCycle ? (isFaint ? colors.faint : colors.cycle) : isSelected ? colors.text : color,
            label: isFaint ? null : node.label,
            labelColor: colors.text,
            size: isSelected ? node.size + 3 : item.isOnCycle ? node.size + 2 : node.size,
            forceLabel: isSelected || (!isFaint && this.graph.order <= MOST_LABELS) || (item.isOnCycle && !isFaint && model.nodesOnCycles <= MOST_LABELS) || (!isFaint && this.selected !== null && this.around.size <= MOST_LABELS),
            zIndex: isFaint ? 0 : item.isOnCycle ? 2 : 1};
    },

    shownEdge(key, edge) {
        const [from, to] = this.graph.extremities(key);
        const touches = from === this.selected || to === this.selected;
        const isFaint = this.selected ? !touches
            : this.isFaint(from, this.graph.getNodeAttribute(from, 'item')) && this.isFaint(to, this.graph.getNodeAttribute(to, 'item'));
        const color = isFaint ? colors.faint : edge.isOnCycle ? colors.cycle : touches ? colors.text : colors[this.edgeColor];
        return {...edge, color, zIndex: isFaint ? 0 : edge.isOnCycle || touches ? 2 : 1};
    },

    // Brings a node into the middle, near enough to read names.
    show(key) {
        if (!this.renderer || !this.graph.hasNode(key)) return;
        const {x, y} = this.renderer.getNodeDisplayData(key);
        this.moveTo({x, y, ratio: Math.min(this.renderer.getCamera().ratio, this.zoomOfNames)});
    },

    moveTo(state) {
        const camera = this.renderer.getCamera();
        if (calm.matches) camera.setState({...camera.getState(), ...state});
        else camera.animate(state, {duration: 250});
    },

    zoom(factor) {
        if (this.renderer) this.moveTo({ratio: this.renderer.getCamera().getBoundedRatio(this.renderer.getCamera().ratio / factor)});
    },

    fit() {
        if (this.renderer) this.moveTo({x: 0.5, y: 0.5, ratio: 1, angle: 0});
    },

    pan(x, y) {
        if (!this.renderer) return;
        const camera = this.renderer.getCamera();
        this.moveTo({x: camera.x + x * camera.ratio / 8, y: camera.y + y * camera.ratio / 8});
    },
};

// A label that stays legible above edges.
function drawLabel(context, node, settings) {
    if (!node.label) return;
    context.font = settings.labelSize + 'px ' + settings.labelFont;
    const width = context.measureText(node.label).width;
    const right = node.x + node.size + 3;
    const x = right + width < byId('graph').clientWidth ? right : node.x - node.size - 3 - width;
    const y = node.y + settings.labelSize / 3;
    context.lineJoin = 'round';
    context.lineWidth = 4;
    context.strokeStyle = colors.ground;
    context.strokeText(node.label, x, y);
    context.fillStyle = colors.text;
    context.fillText(node.label, x, y);
}

// The whole name of the node under the pointer, on a ground of its own.
function drawHovered(context, node, settings) {
    const name = node.item.name;
    context.font = settings.labelSize + 'px ' + settings.labelFont;
    const width = context.measureText(name).width;
    const right = node.x + node.size + 2;
    const left = right + width + 12 < byId('graph').clientWidth ? right : Math.max(4, node.x - node.size - 14 - width);
    const height = settings.labelSize + 10;
    context.fillStyle = colors.panel;
    context.strokeStyle = colors.line;
    context.beginPath();
    context.roundRect(left, node.y - height / 2, width + 12, height, 4);
    context.fill();
    context.stroke();
    context.fillStyle = colors.text;
    context.fillText(name, left + 6, node.y + settings.labelSize / 3);
}

const swatch = (library) => make('span', {class: 'swatch', style: 'background: ' + (library === NONE
    ? 'var(--several)' : 'var(--library-' + library % LIBRARY_COLORS + ')'), 'aria-hidden': 'true'});

function fileButton(node) {
    const file = model.fileNameOf(node);
    const text = make('span', {}, file);
    if (node.cycle !== NONE) text.append(make('span', {class: 'cycle'}, ' · cycle'));
    if (!node.isListed) text.append(make('span', {class: 'quiet'}, ' · not listed'));
    if (file !== node.name)
        text.append(make('span', {class: 'folder'}, node.name.slice(0, -file.length)));
    return make('li', {}, make('button', {type: 'button', onclick: () => selectNode(node)}, swatch(node.library), text));
}

// A heading and the list of the nodes; of many a part, with a button for the rest.
function listOf(title, nodes) {
    const list = make('ul', {class: 'files'}, ...nodes.slice(0, MOST_LISTED).map(fileButton));
    const parts = [make('h3', {}, title + ' (' + nodes.length.toLocaleString('en') + ')'), list];
    if (nodes.length > MOST_LISTED) {
        const more = make('button', {type: 'button', onclick: () => {
            list.append(...nodes.slice(MOST_LISTED).map(fileButton));
            more.remove();
        }}, 'Show all');
        parts.push(more);
    }
    return parts;
}

const nodesAt = (places) => places.map((place) => model.nodes[place]);

function detailsOfNode(node) {
    const parts = [make('h2', {}, node.name)];
    const library = node.library === NONE ? 'several libraries' : 'library ' + model.libraries[node.library];
    parts.push(make('p', {}, swatch(node.library), ' ' + library));
    if (model.by !== 'file') parts.push(make('p', {class: 'quiet'}, filesText(node.fileCount)));
    if (!node.isListed) parts.push(make('p', {class: 'quiet'}, 'Not listed: only dependencies name it.'));
    if (node.cycle !== NONE) {
        const others = model.cycles.get(node.cycle).length - 1;
        parts.push(make('p', {class: 'cycle'}, others ? 'On a cycle with ' + counted(others, 'other', 'others')
            : 'On a cycle: it needs itself'));
    }
    if (model.hasFolders)
        parts.push(make('button', {type: 'button', onclick: () => toggleFolder('f' + node.folder)},
            'Close folder ' + model.folders[node.folder]));
    return parts.concat(listOf('Needs', nodesAt(node.needs)), listOf('Needed by', nodesAt(node.neededBy)));
}

function detailsOfFolder(folder) {
    const files = model.filesOfFolder[folder];
    const outside = (others) => nodesAt([...new Set(others)].sort((one, other) => one - other))
        .filter((node) => node.folder !== folder);
    return [
        make('h2', {}, model.folders[folder]),
        make('p', {class: 'quiet'}, 'Folder of ' + filesText(files.length)),
        make('button', {type: 'button', onclick: () => toggleFolder('f' + folder)}, 'Open folder'),
        ...listOf('Files', files),
        ...listOf('Needs', outside(files.flatMap((file) => file.needs))),
        ...listOf('Needed by', outside(files.flatMap((file) => file.neededBy))),
    ];
}

function detailsOfNothing() {
    const parts = [make('p', {class: 'quiet'}, 'Select a node to see what it needs and what needs it. Zoom in to read names.' +
        (model.closed.size ? ' Double-click a folder to open it.' : ''))];
    let number = 0;
    for (const nodes of model.cycles.values())
        parts.push(...listOf('Cycle ' + ++number, nodes));
    return parts;
}

function showDetails() {
    const key = view.selected;
    const parts = !key ? detailsOfNothing()
        : key[0] === 'f' ? detailsOfFolder(Number(key.slice(1))) : detailsOfNode(model.nodes[Number(key.slice(1))]);
    byId('details').replaceChildren(...parts);
    byId('details').scrollTop = 0;
    byId('open-all').disabled = model.closed.size === 0;
    byId('close-all').disabled = model.closed.size === model.filesOfFolder.filter((files) => files.length).length;
}

// Selects what is seen behind a key; null ends the selection.
function select(key) {
    view.selected = key;
    view.mark();
    showDetails();
    view.refresh();
}

// Selects a node, opening its folder, and brings it into the middle.
function selectNode(node) {
    if (model.isClosed(node)) {
        model.closed.delete(node.folder);
        view.refill();
    }
    select(model.keyOf(node));
    view.show(view.selected);
}

// Opens or closes the folder of a key.
function toggleFolder(key) {
    const place = Number(key.slice(1));
    const folder = key[0] === 'f' ? place : model.nodes[place].folder;
    if (!model.hasFolders) return;
    const wasClosed = model.closed.has(folder);
    if (wasClosed) model.closed.delete(folder);
    else model.closed.add(folder);
    view.refill();
    select(wasClosed ? null : 'f' + folder);
    if (wasClosed) select(model.keyOf(model.filesOfFolder[folder][0]));
    view.show(view.selected);
}

function setAllFolders(isOpen) {
    const node = view.selected && view.selected[0] === 'n' ? model.nodes[Number(view.selected.slice(1))] : null;
    if (isOpen) model.openAll();
    else model.closeAll();
    view.refill();
    select(node ? model.keyOf(node) : null);
    view.fit();
}

// The search: a text field with a list below, both used from the field.
const search = {
    matches: [],
    active: -1,

    start() {
        const query = byId('query');
        query.addEventListener('input', () => this.find());
        query.addEventListener('keydown', (event) => this.pressed(event));
        query.addEventListener('blur', () => this.close());
        byId('matches').addEventListener('mousedown', (event) => {
            event.preventDefault();
            const row = event.target.closest('[role="option"]');
            if (row) this.choose(Number(row.dataset.number));
        });
    },

    find() {
        const all = model.search(byId('query').value);
        this.matches = all.slice(0, MOST_MATCHES);
        this.active = this.matches.length ? 0 : -1;
        const rows = this.matches.map((node, number) => make('li', {role: 'option', id: 'match-' + number, 'data-number': number}, node.name));
        if (all.length > MOST_MATCHES) rows.push(make('li', {class: 'note'}, 'and ' + (all.length - MOST_MATCHES).toLocaleString('en') + ' more'));
        if (!all.length) rows.push(make('li', {class: 'note'}, 'No match'));
        byId('matches').replaceChildren(...rows);
        this.open(byId('query').value.trim() !== '');
        this.point();
    },

    open(isOpen) {
        byId('matches').hidden = !isOpen;
        byId('query').setAttribute('aria-expanded', String(isOpen));
    },

    close() {
        this.open(false);
        byId('query').removeAttribute('aria-activedescendant');
    },

    point() {
        byId('matches').querySelectorAll('[role="option"]').forEach((row, number) => {
            row.setAttribute('aria-selected', String(number === this.active));
            if (number === this.active) row.scrollIntoView({block: 'nearest'});
        });
        if (this.active >= 0) byId('query').setAttribute('aria-activedescendant', 'match-' + this.active);
        else byId('query').removeAttribute('aria-activedescendant');
    },

    pressed(event) {
        const step = {ArrowDown: 1, ArrowUp: -1}[event.key];
        if (step && this.matches.length) {
            event.preventDefault();
            this.active = (this.active + step + this.matches.length) % this.matches.length;
            this.open(true);
            this.point();
        } else if (event.key === 'Enter' && this.active >= 0) {
            this.choose(this.active);
        } else if (event.key === 'Escape') {
            this.close();
        }
    },

    choose(number) {
        this.close();
        selectNode(this.matches[number]);
    },
};

function showLegend() {
    const counts = new Map();
    for (const node of model.nodes) counts.set(node.library, (counts.get(node.library) || 0) + node.fileCount);
    const rows = [];
    model.libraries.forEach((name, library) => {
        if (!counts.has(library)) return;
        const button = make('button', {type: 'button', 'aria-pressed': 'false', onclick: () => {
            view.library = view.library === library ? null : library;
            byId('libraries').querySelectorAll('button').forEach((other) => other.setAttribute('aria-pressed', 'false'));
            button.setAttribute('aria-pressed', String(view.library === library));
            select(null);
        }}, swatch(library), make('span', {}, name + ' ', make('span', {class: 'quiet'}, filesText(counts.get(library)))));
        rows.push(make('li', {}, button));
    });
    byId('libraries').replaceChildren(...rows);
    const sign = (mark, text) => make('li', {}, mark, make('span', {}, text));
    const ring = (name) => make('span', {class: 'swatch ' + name, 'aria-hidden': 'true'});
    const signs = [sign(make('span', {class: 'arrow', 'aria-hidden': 'true'}, '→'), 'points to what is needed')];
    if (model.cycles.size) signs.push(sign(ring('ring'), 'on a cycle'));
    if (model.hasFolders) signs.push(sign(ring('large'), 'closed folder; grey: several libraries'));
    else if (counts.has(NONE)) signs.push(sign(ring('large'), 'several libraries'));
    if (model.nodes.some((node) => !node.isListed)) signs.push(sign(ring('hollow'), 'not listed by the build'));
    byId('signs').replaceChildren(...signs);
}

function showCounts() {
    const parts = [model.by === 'file' ? filesText(model.nodes.length)
        : model.by === 'library' ? counted(model.nodes.length, 'library', 'libraries')
        : counted(model.nodes.length, 'folder', 'folders')];
    parts.push(counted(model.edges.length, 'dependency', 'dependencies'));
    byId('counts').replaceChildren(parts.join(' · ') + ' · ');
    byId('counts').append(make('span', {class: model.cycles.size ? 'cycle' : 'quiet'},
        model.cycles.size ? counted(model.cycles.size, 'cycle', 'cycles') : 'no cycles'));
}

const GRAPH_KEYS = {
    '+': () => view.zoom(1.5),
    '=': () => view.zoom(1.5),
    '-': () => view.zoom(1 / 1.5),
    '0': () => view.fit(),
    ArrowLeft: () => view.pan(-1, 0),
    ArrowRight: () => view.pan(1, 0),
    ArrowUp: () => view.pan(0, 1),
    ArrowDown: () => view.pan(0, -1),
    Enter: () => view.selected && toggleFolder(view.selected),
};

function startKeys() {
    byId('graph').addEventListener('keydown', (event) => {
        const run = GRAPH_KEYS[event.key];
        if (!run || event.ctrlKey || event.metaKey || event.altKey) return;
        event.preventDefault();
        run();
    });
    document.addEventListener('keydown', (event) => {
        if (event.target === byId('query') || event.ctrlKey || event.metaKey || event.altKey) return;
        if (event.key === 'Escape') select(null);
        if (event.key !== '/') return;
        event.preventDefault();
        byId('query').focus();
        byId('query').select();
    });
}

function start() {
    readColors();
    byId('open-all').hidden = byId('close-all').hidden = !model.hasFolders;
    byId('zoom-in').onclick = () => view.zoom(1.5);
    byId('zoom-out').onclick = () => view.zoom(1 / 1.5);
    byId('fit').onclick = () => view.fit();
    byId('open-all').onclick = () => setAllFolders(true);
    byId('close-all').onclick = () => setAllFolders(false);
    showCounts();
    showLegend();
    view.start();
    showDetails();
    search.start();
    startKeys();
    dark.addEventListener('change', () => {
        readColors();
        view.refresh();
    });
}

start();
