// The drawing of a cut. Only what is visible is drawn, on a canvas that stays where it is while the
// scroller around it moves: an element as long as the cut makes it scroll.

const RULER_HEIGHT = 26;
const CAPTION_HEIGHT = 24;
const TRACK_GAP = 2;
const SECTION_GAP = 8;
const SCROLLBAR_HEIGHT = 18;
const VISIBLE_PART = 0.4; // of the window, as in the style sheet
const MIN_NAMED_WIDTH = 22; // of what is free for the name of a clip
const MIN_CLIP_WIDTH = 3; // below it clips become columns of one pixel
const MAX_WIDTH = 12e6; // browsers limit the size of what scrolls
const MAX_FRAME_WIDTH = 32;
const LABEL_DISTANCE = 96; // of the ruler

const timeline = {
    scroller: document.getElementById('timeline'),
    sizer: document.getElementById('sizer'),
    canvas: document.getElementById('drawing'),
    overview: document.getElementById('overview'),
    rows: [], // {y, height, track} or {y, height, caption}
    height: 0,
    seconds: 0, // of the longest view
    left: 0, // width of the tracks' heads
    scale: 1, // pixels a second
    isScheduled: false,
};

// Layout

function layoutTimeline(cut) {
    const trackHeight = trackHeightOf(cut);
    timeline.rows = [];
    let y = RULER_HEIGHT + TRACK_GAP;
    const add = (row) => {
        timeline.rows.push({...row, y});
        y += row.height + TRACK_GAP;
    };
    cut.views.forEach((view, index) => {
        if (data.isComparison)
            add({height: CAPTION_HEIGHT, caption: captionOf(view, index)});
        let isVideo = true;
        for (const track of view?.tracks ?? []) {
            if (isVideo && !track.isVideo)
                y += SECTION_GAP;
            isVideo = track.isVideo;
            add({height: trackHeight, track});
        }
    });
    timeline.height = y;
    const secondsOf = (view) => view ? view.length * view.frameSeconds : 0;
    timeline.seconds = Math.max(...cut.views.map(secondsOf));
}

// Tracks are as high as lets all of them be seen, within limits.
function trackHeightOf({views}) {
    const count = views.reduce((sum, view) => sum + (view?.tracks.length ?? 0), 0);
    const captions = data.isComparison ? views.length * (CAPTION_HEIGHT + TRACK_GAP) : 0;
    const others = RULER_HEIGHT + captions + views.length * SECTION_GAP + SCROLLBAR_HEIGHT;
    const space = window.innerHeight * VISIBLE_PART - others;
    return Math.min(Math.max(Math.floor(space / count) - TRACK_GAP, 17), 38);
}

function captionOf(view, index) {
    const ordinal = index === 0 ? 'First' : 'Second';
    const name = view ? view.name : 'does not have this sequence';
    return `${ordinal}: ${[data.projects[index].name, name].filter(Boolean).join(' \u2013 ')}`;
}

function sizeTimeline() {
    layoutTimeline(state.cut);
    timeline.left = timeline.scroller.clientWidth < 560 ? 44 : 110;
    const section = timeline.scroller.parentElement;
    section.style.setProperty('--height', `${timeline.height + SCROLLBAR_HEIGHT}px`);
    section.style.setProperty('--left', `${timeline.left}px`);
    document.documentElement.style.setProperty('--cuts', `${section.offsetHeight}px`);
    timeline.scale = Math.min(Math.max(timeline.scale, fitScale()), maxScale());
    if (state.isFit)
        timeline.scale = fitScale();
    const width = Math.max(timeline.left + timeline.seconds * timeline.scale,
        timeline.scroller.clientWidth);
    timeline.sizer.style.width = `${state.isFit ? timeline.scroller.clientWidth : width}px`;
    timeline.sizer.style.height = `${timeline.height}px`;
}

function fitScale() {
    const space = timeline.scroller.clientWidth - timeline.left - 6;
    return Math.max(space, 50) / Math.max(timeline.seconds, 1e-3);
}

function maxScale() {
    const [view] = currentViews();
    return Math.max(fitScale(), Math.min(MAX_FRAME_WIDTH / (view?.frameSeconds ?? 1),
        MAX_WIDTH / Math.max(timeline.seconds, 1e-3)));
}

function secondsAt(x) {
    return (x - timeline.left + timeline.scroller.scrollLeft) / timeline.scale;
}

// Keeps the time under `x` where it is.
function zoomTo(scale, x = timeline.left + (timeline.scroller.clientWidth - timeline.left) / 2) {
    const anchor = secondsAt(x);
    timeline.scale = scale;
    state.isFit = scale <= fitScale();
    sizeTimeline();
    timeline.scroller.scrollLeft = anchor * timeline.scale - (x - timeline.left);
    scheduleDrawing();
}

function scrollToClip(clip) {
    const row = timeline.rows.find(({track}) => track === clip.track);
    const {scroller, left, scale} = timeline;
    const {frameSeconds} = clip.track.view;
    const start = clip.start * frameSeconds * scale;
    const end = clip.end * frameSeconds * scale;
    const space = scroller.clientWidth - left;
    if (start < scroller.scrollLeft || Math.min(end, start + space) > scroller.scrollLeft + space)
        scroller.scrollLeft = start - Math.max(space - (end - start), 0) / 2;
    if (row.y - RULER_HEIGHT < scroller.scrollTop)
        scroller.scrollTop = row.y - RULER_HEIGHT - TRACK_GAP;
    else if (row.y + row.height > scroller.scrollTop + scroller.clientHeight)
        scroller.scrollTop = row.y + row.height - scroller.clientHeight + TRACK_GAP;
    scheduleDrawing();
}

// The clip under a point of the canvas; a transition is above the clips that it joins.
function clipAt(x, y) {
    const row = timeline.rows.find(({y: top, height}) => {
        const inRow = y + timeline.scroller.scrollTop - top;
        return inRow >= 0 && inRow < height;
    });
    if (!row?.track || x < timeline.left || y < RULER_HEIGHT)
        return null;
    const slack = 2 / timeline.scale;
    const near = clipsBetween(row.track, secondsAt(x) - slack, secondsAt(x) + slack);
    const isWide = (clip) => xOf(clip.track.view, clip.end) - xOf(clip.track.view, clip.start) >=
        MIN_CLIP_WIDTH;
    const under = clipsBetween(row.track, secondsAt(x), secondsAt(x)).filter(isWide);
    const transition = under.find(({kind}) => kind === TRANSITION);
    const narrow = near.sort((a, b) => importanceOf(a) - importanceOf(b));
    return transition ?? under.at(-1) ?? narrow[0] ?? null;
}

function clipsBetween(track, from, to) {
    const {frameSeconds} = track.view;
    const first = firstIndex(track.latestEnds, (end) => end * frameSeconds < from);
    const last = firstIndex(track.clips, (clip) => clip.start * frameSeconds <= to);
    return track.clips.slice(first, last).filter((clip) => clip.end * frameSeconds >= from);
}

// Drawing

function scheduleDrawing() {
    if (timeline.isScheduled)
        return;
    timeline.isScheduled = true;
    requestAnimationFrame(() => {
        timeline.isScheduled = false;
        drawTimeline();
        drawOverview();
    });
}

function drawTimeline() {
    const {scroller, canvas, rows} = timeline;
    const area = {width: scroller.clientWidth, height: scroller.clientHeight};
    canvas.style.width = `${area.width}px`;
    canvas.style.height = `${area.height}px`;
    const context = prepareCanvas(canvas, area);
    context.font = `12px ${palette.font}`;
    context.textBaseline = 'middle';
    for (const row of rows) {
        const y = row.y - scroller.scrollTop;
        if (y > area.height || y + row.height < RULER_HEIGHT)
            continue;
        if (row.track)
            drawTrack(context, row.track, {y, height: row.height, width: area.width});
        else
            drawCaption(context, row.caption, {y, height: row.height, width: area.width});
    }
    drawRuler(context, area);
}

// The context of a canvas in sharp pixels, empty.
function prepareCanvas(canvas, {width, height}) {
    const density = window.devicePixelRatio || 1;
    canvas.width = Math.round(width * density);
    canvas.height = Math.round(height * density);
    const context = canvas.getContext('2d');
    context.setTransform(density, 0, 0, density, 0, 0);
    return context;
}

function drawCaption(context, caption, {y, height, width}) {
    context.fillStyle = palette.muted;
    context.font = `600 12px ${palette.font}`;
    context.fillText(shortened(context, caption, width - 16), 8, y + height / 2 + 2);
    context.font = `12px ${palette.font}`;
}

function drawTrack(context, track, row) {
    context.save();
    context.beginPath();
    context.rect(timeline.left, row.y, row.width - timeline.left, row.height);
    context.clip();
    drawGaps(context, track, row);
    drawClips(context, track, row);
    context.restore();
    drawTrackHead(context, track, row);
}

// What no clip covers shows the dashed line.
function drawGaps(context, track, {y, height, width}) {
    const end = xOf(track.view, track.latestEnds.at(-1) ?? 0);
    context.fillStyle = palette.track;
    context.fillRect(timeline.left, y, width - timeline.left, height);
    context.strokeStyle = palette.gap;
    context.setLineDash([3, 4]);
    context.lineDashOffset = timeline.scroller.scrollLeft % 7;
    context.beginPath();
    context.moveTo(timeline.left, Math.round(y + height / 2) + 0.5);
    context.lineTo(Math.min(end, width), Math.round(y + height / 2) + 0.5);
    context.stroke();
    context.setLineDash([]);
}

function xOf(view, frame) {
    const {left, scale, scroller} = timeline;
    return left + frame * view.frameSeconds * scale - scroller.scrollLeft;
}

function drawClips(context, track, row) {
    const visible = clipsBetween(track, secondsAt(timeline.left), secondsAt(row.width));
    const origin = xOf(track.view, 0);
    const frameWidth = track.view.frameSeconds * timeline.scale;
    const wide = [];
    const columns = new Map(); // the most important clip by x
    for (const clip of visible) {
        const x = origin + clip.start * frameWidth;
        const width = (clip.end - clip.start) * frameWidth;
        if (width >= MIN_CLIP_WIDTH) {
            wide.push({clip, x, width});
            continue;
        }
        const column = Math.floor(x);
        const known = columns.get(column);
        if (!known || importanceOf(clip) < importanceOf(known))
            columns.set(column, clip);
    }
    const transitions = wide.filter(({clip}) => clip.kind === TRANSITION);
    for (const entry of wide)
        if (entry.clip.kind !== TRANSITION)
            drawClip(context, {...entry, ...nameRange(entry, transitions)}, row);
    drawColumns(context, columns, row);
    for (const entry of transitions)
        drawTransition(context, entry, row);
    context.globalAlpha = 1;
    if (state.selected?.track === track)
        drawSelection(context, track, row);
}

// Columns that look alike and are side by side are drawn as one.
function drawColumns(context, columns, {y, height}) {
    let run = null;
    const drawRun = () => {
        if (!run)
            return;
        context.globalAlpha = run.alpha;
        context.fillStyle = run.color;
        context.fillRect(run.x, y, run.end - run.x + 0.5, height);
    };
    for (const [x, clip] of columns) {
        const alpha = clip.isFaint ? palette.faint : clip.mark === ARRIVED ? 0.6 : 1;
        const color = clip === state.selected ? palette.accent : colorOf(clip).strong;
        if (run?.end !== x || run.alpha !== alpha || run.color !== color) {
            drawRun();
            run = {x, alpha, color};
        }
        run.end = x + 1;
    }
    drawRun();
}

// The name of a clip is between the transitions at its edges.
function nameRange({x, width}, transitions) {
    const end = x + width;
    const atStart = transitions[firstIndex(transitions, (box) => box.x + box.width <= x)];
    const atEnd = transitions[firstIndex(transitions, (box) => box.x + box.width < end)];
    return {
        nameStart: atStart?.x <= x ? atStart.x + atStart.width : x,
        nameEnd: atEnd?.x < end ? Math.max(atEnd.x, x) : end,
    };
}

function importanceOf(clip) {
    return clip === state.selected ? -1 : clip.mark + (clip.isFaint ? MARKS.length : 0);
}

// The colors of a clip: its body, and its edge.
function colorOf(clip) {
    const kind = clip.kind === 'clip' ? (clip.track.isVideo ? 'video' : 'audio') : clip.kind;
    const neutral = palette.kinds[kind];
    return clip.mark === ARRIVED ? neutral : palette.marks[clip.mark];
}

// A band in the pattern of its mark below the name, which is at the left edge of what is visible.
function drawClip(context, {clip, x, width, nameStart, nameEnd}, {y, height}) {
    const colors = colorOf(clip);
    const inner = Math.max(width - 1, 1.5);
    const isOn = clip.enabled && clip.track.enabled;
    context.globalAlpha = clip.isFaint ? palette.faint : isOn ? 1 : palette.off;
    context.fillStyle = colors.body;
    context.fillRect(x, y, inner, height);
    if (clip.mark === ARRIVED) {
        context.fillStyle = colors.strong;
        context.fillRect(x, y + height - 3, inner, 3);
    } else {
        const band = height < 24 ? 5 : 9;
        fillPattern(context, clip.mark, {x, y: y + height - band, width: inner, height: band});
        context.fillStyle = colors.strong;
        context.fillRect(x, y, Math.min(2, inner), height);
    }
    if (state.group && !clip.isFaint) {
        context.strokeStyle = palette.ink;
        context.strokeRect(x + 0.5, y + 0.5, Math.max(inner - 1, 0.5), height - 1);
    }
    const from = Math.max(nameStart, timeline.left) + 6;
    if (nameEnd - from >= MIN_NAMED_WIDTH)
        drawClipName(context, clip, {x: from, y: y + (height - (height < 24 ? 3 : 8)) / 2,
            space: nameEnd - from - 4});
}

function drawClipName(context, clip, {x, y, space}) {
    const symbol = clip.mark === ARRIVED ? '' : `${MARKS[clip.mark].symbol} `;
    const rest = symbol ? space - context.measureText(symbol).width : space;
    context.fillStyle = palette.ink;
    context.fillText(symbol + shortened(context, clip.name, rest), x, y);
}

// As much of a text as fits.
function shortened(context, text, space) {
    if (space < 8)
        return '';
    const start = text.slice(0, 200);
    const width = context.measureText(start).width;
    if (width <= space && start === text)
        return text;
    const count = Math.floor(start.length * Math.min(1, (space - 10) / width));
    return count < 1 ? '' : `${start.slice(0, count).replace(/[\ud800-\udbff]$/, '')}\u2026`;
}

// A box with the line that one clip goes down and the other comes up on.
function drawTransition(context, {clip, x, width}, {y, height}) {
    const colors = colorOf(clip);
    const box = {
        x: x + 0.5,
        y: y + 1.5,
        width: Math.max(width - 1, 1),
        height: Math.round(height * 0.45),
    };
    context.globalAlpha = clip.isFaint ? palette.faint : 1;
    context.fillStyle = colors.body;
    context.fillRect(box.x, box.y, box.width, box.height);
    if (clip.mark !== ARRIVED)
        fillPattern(context, clip.mark, {...box, y: box.y + box.height - 5, height: 5});
    context.strokeStyle = colors.strong;
    context.strokeRect(box.x, box.y, box.width, box.height);
    context.beginPath();
    context.moveTo(box.x, box.y + box.height);
    context.lineTo(box.x + box.width, box.y);
    context.stroke();
}

function drawSelection(context, track, {y, height}) {
    const x = xOf(track.view, state.selected.start);
    const width = Math.max(xOf(track.view, state.selected.end) - x - 1, 2);
    context.lineWidth = 3;
    context.strokeStyle = palette.accent;
    context.strokeRect(x + 0.5, y + 1.5, width, height - 3);
    context.lineWidth = 1;
}

function drawTrackHead(context, track, {y, height}) {
    const width = timeline.left - TRACK_GAP;
    context.fillStyle = palette.panel;
    context.fillRect(0, y, width, height);
    const mark = track.remarks.reduce((worst, remark) => Math.min(worst, remark.mark), ARRIVED);
    if (mark !== ARRIVED)
        fillPattern(context, mark, {x: 0, y, width: 5, height});
    context.fillStyle = track.enabled ? palette.ink : palette.muted;
    context.font = `600 12px ${palette.font}`;
    context.fillText(track.id, 11, y + height / 2);
    context.font = `11px ${palette.font}`;
    context.fillStyle = palette.muted;
    const details = [track.name, track.enabled ? '' : 'off', track.locked ? 'locked' : ''];
    const text = details.filter(Boolean).join(', ');
    context.fillText(shortened(context, text, width - 40), 40, y + height / 2);
    context.font = `12px ${palette.font}`;
}

// Labels are at times that people count in.
function drawRuler(context, {width, height}) {
    const view = currentViews()[0];
    context.fillStyle = palette.panel;
    context.fillRect(0, 0, width, RULER_HEIGHT);
    context.fillStyle = palette.line;
    context.fillRect(0, RULER_HEIGHT - 1, width, 1);
    if (!view)
        return;
    const step = rulerStep(view);
    const first = Math.floor(secondsAt(timeline.left) / view.frameSeconds);
    context.font = `11px ${palette.font}`;
    const number = Math.ceil(numberOfFrame(view, first) / step) * step;
    for (let label = 0; label < width / LABEL_DISTANCE + 1; ++label) {
        const frame = frameOfNumber(view, number + label * step);
        const x = Math.round(xOf(view, frame));
        if (x < timeline.left)
            continue;
        context.fillStyle = palette.muted;
        context.fillText(timecode(view, frame), x + 4, RULER_HEIGHT / 2);
        context.fillRect(x, RULER_HEIGHT - 8, 1, 8);
        context.fillStyle = palette.grid;
        context.fillRect(x, RULER_HEIGHT, 1, height);
    }
}

function rulerStep(view) {
    const {base, frameSeconds} = view;
    const minute = 60 * base;
    const steps = [1, 2, 5, 10, ...[1, 2, 5, 10, 15, 30].map((seconds) => seconds * base),
        ...[1, 2, 5, 10, 15, 30, 60, 120, 360, 720, 1440].map((minutes) => minutes * minute)];
    const isFar = (frames) => frames * frameSeconds * timeline.scale >= LABEL_DISTANCE;
    let step = steps.find(isFar) ?? steps.at(-1);
    while (!isFar(step))
        step *= 2;
    return step;
}

// The whole cut on one line: where something happened, and what the timeline shows of it.
function drawOverview() {
    const {overview, scroller, left, scale, seconds} = timeline;
    const size = {width: overview.clientWidth, height: overview.clientHeight};
    const context = prepareCanvas(overview, size);
    const pixels = size.width / Math.max(seconds, 1e-3);
    const worst = new Map();
    for (const clip of markedClips()) {
        const x = Math.floor(clip.start * clip.track.view.frameSeconds * pixels);
        worst.set(x, Math.min(worst.get(x) ?? ARRIVED, clip.mark));
    }
    const shown = Math.min((scroller.clientWidth - left) / scale, seconds) * pixels;
    const from = scroller.scrollLeft / scale * pixels;
    context.fillStyle = palette.window;
    context.fillRect(from, 0, Math.max(shown, 4), size.height);
    for (const [x, mark] of worst) {
        context.fillStyle = palette.marks[mark].strong;
        context.fillRect(x, 4, 2, size.height - 8);
    }
    context.strokeStyle = palette.accent;
    context.strokeRect(from + 0.5, 0.5, Math.max(shown, 4) - 1, size.height - 1);
}
