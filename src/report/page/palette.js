// Colors and patterns of the canvas.

// What the style sheet has for the canvas; read anew when the theme changes.
let palette = null;

function readPalette() {
    const style = getComputedStyle(document.documentElement);
    const color = (name) => style.getPropertyValue(`--${name}`).trim();
    const names = ['ink', 'muted', 'panel', 'line', 'track', 'gap', 'grid', 'accent', 'window'];
    palette = Object.fromEntries(names.map((name) => [name, color(name)]));
    palette.font = style.fontFamily;
    palette.faint = 0.22; // opacity of what is filtered out
    palette.off = 0.55; // and of what is switched off
    const kindColors = (name) => ({body: color(name), strong: color(`${name}-edge`)});
    palette.kinds = {
        'video': kindColors('video'),
        'audio': kindColors('audio'),
        'nested sequence': kindColors('nested'),
        'multiclip': kindColors('nested'),
        'generator': kindColors('generator'),
        'title': kindColors('title'),
        [TRANSITION]: kindColors('transition'),
    };
    palette.marks = MARKS.map(({id}) => ({body: color(`${id}-body`), strong: color(id)}));
}

// Draws what the band of a mark repeats every 8 pixels, in the color of the body.
const PATTERNS = {
    lost: (context) => drawLines(context, [[-2, 10, 10, -2], [-6, 6, 6, -6], [2, 14, 14, 2]]),
    changed: (context) => drawLines(context, [[2, 0, 2, 8], [6, 0, 6, 8]]),
    moved: (context) => drawLines(context, [[1, 0, 5, 4], [5, 4, 1, 8]]),
    skipped: (context) => drawLines(context, [[0, 2, 4, 2], [4, 6, 8, 6]]),
    assumed: (context) => {
        for (const [x, y] of [[2, 2], [6, 6]])
            context.fillRect(x - 1, y - 1, 2, 2);
    },
    added: (context) => drawLines(context, [[4, 1, 4, 7], [1, 4, 7, 4]]),
    arrived: () => {},
};

function drawLines(context, lines) {
    for (const [fromX, fromY, toX, toY] of lines) {
        context.beginPath();
        context.moveTo(fromX, fromY);
        context.lineTo(toX, toY);
        context.stroke();
    }
}

function fillPattern(context, mark, {x, y, width, height}) {
    const colors = palette.marks[mark];
    if (!colors.pattern)
        colors.pattern = context.createPattern(patternTile(mark), 'repeat');
    colors.pattern.setTransform(new DOMMatrix([1 / 4, 0, 0, 1 / 4, x, y]));
    context.fillStyle = colors.pattern;
    context.fillRect(x, y, width, height);
}

// Four times as large as it is drawn, for sharp screens.
function patternTile(mark) {
    const colors = palette.marks[mark];
    const tile = document.createElement('canvas');
    tile.width = tile.height = 32;
    const context = tile.getContext('2d');
    context.scale(4, 4);
    context.fillStyle = colors.strong;
    context.fillRect(0, 0, 8, 8);
    context.fillStyle = context.strokeStyle = colors.body;
    context.lineWidth = 1.6;
    PATTERNS[MARKS[mark].id](context);
    return tile;
}
