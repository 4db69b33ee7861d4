// The page: its state, what changes it, and what follows from a change.

const data = readData();

const state = {
    cut: data.cuts[0] ?? null,
    hidden: new Set(), // marks that are filtered out
    text: '', // in lower case, that a clip or remark has to contain
    group: null, // the open one
    shownInGroup: LIST_STEP,
    selected: null, // a clip
    isFit: true, // the whole cut is as wide as the window
};

function render() {
    renderLegend();
    renderTable();
    renderDetails();
    renderTools();
    scheduleDrawing();
}

function currentViews() {
    return state.cut ? state.cut.views.filter(Boolean) : [];
}

function* clipsOf(cut) {
    for (const view of cut?.views ?? [])
        for (const track of view?.tracks ?? [])
            yield* track.clips;
}

// What the overview shows.
function* markedClips() {
    for (const clip of clipsOf(state.cut))
        if (clip.mark !== ARRIVED && !clip.isFaint)
            yield clip;
}

// Changes

function showCut(cut) {
    state.cut = cut;
    state.selected = null;
    state.isFit = true;
    sizeTimeline();
    timeline.scroller.scrollTo(0, 0);
    markClips();
    render();
}

// Groups show only what passes; an open one without any closes.
function filter() {
    for (const group of data.groups)
        countGroup(group, group.remarks.filter(passes));
    if (state.group?.shown.length === 0)
        state.group = null;
    markClips();
    render();
}

// Clips that don't pass are faint, and those outside of the open group.
function markClips() {
    for (const clip of clipsOf(state.cut)) {
        const isInGroup = !state.group || state.group.clips.has(clip);
        clip.isFaint = !isInGroup || !clipPasses(clip);
    }
}

function clipPasses(clip) {
    const hasName = clip.name.toLowerCase().includes(state.text);
    if (clip.remarks.length === 0)
        return hasName && !state.hidden.has(ARRIVED);
    return clip.remarks.some((remark) =>
        hasName ? !state.hidden.has(remark.mark) : passes(remark));
}

function passes(remark) {
    return !state.hidden.has(remark.mark) &&
        (!state.text || searchTextOf(remark).includes(state.text));
}

// Opens a group, marks its clips and shows the first of them.
function toggleGroup(group) {
    state.group = state.group === group ? null : group;
    state.shownInGroup = LIST_STEP;
    const clips = [...state.group?.clips ?? []];
    if (clips.length > 0 && !clips.some(isInCut))
        showCut(cutOf(clips[0]));
    markClips();
    render();
    const first = clips.find(isInCut);
    if (first)
        scrollToClip(first);
}

function isInCut(clip) {
    return currentViews().includes(clip.track.view);
}

function cutOf(clip) {
    return data.cuts.find(({views}) => views.includes(clip.track.view));
}

function select(clip) {
    state.selected = clip;
    if (clip)
        scrollToClip(clip);
    render();
    document.getElementById('live').textContent = clip ? summaryOf(clip) : '';
}

function goToClip(clip) {
    if (!isInCut(clip))
        showCut(cutOf(clip));
    select(clip);
}

// Keys of the timeline

const ZOOM_STEP = 1.5;

const KEYS = {
    'ArrowRight': () => selectBeside(1),
    'ArrowLeft': () => selectBeside(-1),
    'ArrowDown': () => selectOnTrack(1),
    'ArrowUp': () => selectOnTrack(-1),
    'Home': () => selectAt(0),
    'End': () => selectAt(-1),
    'n': () => selectMarked(1),
    'p': () => selectMarked(-1),
    '+': () => zoom(ZOOM_STEP),
    '=': () => zoom(ZOOM_STEP),
    '-': () => zoom(1 / ZOOM_STEP),
    '0': () => zoom(0),
    'Enter': () => document.getElementById('details-heading').focus(),
    'Escape': () => select(null),
};

function onKey(event) {
    const action = KEYS[event.key];
    if (!action || event.ctrlKey || event.metaKey || event.altKey)
        return;
    event.preventDefault();
    action();
}

function tracksWithClips() {
    return currentViews().flatMap((view) => view.tracks).filter((track) => track.clips.length > 0);
}

function selectFirst() {
    const [track] = tracksWithClips();
    if (track)
        select(track.clips[0]);
}

function selectBeside(step) {
    if (!state.selected)
        return selectFirst();
    const {clips} = state.selected.track;
    const next = clips[clips.indexOf(state.selected) + step];
    if (next)
        select(next);
}

// The clip of the next track that plays at the same time, or the one before it.
function selectOnTrack(step) {
    if (!state.selected)
        return selectFirst();
    const tracks = tracksWithClips();
    const {track: from, start} = state.selected;
    const track = tracks[tracks.indexOf(from) + step];
    if (!track)
        return;
    const seconds = start * from.view.frameSeconds;
    const after = firstIndex(track.clips,
        (clip) => clip.start * track.view.frameSeconds <= seconds + 1e-6);
    select(track.clips[Math.max(after - 1, 0)]);
}

function selectAt(index) {
    const track = state.selected?.track ?? tracksWithClips()[0];
    if (track)
        select(track.clips.at(index));
}

// The next clip of the track to which something happened, then of those below.
function selectMarked(step) {
    const clips = [...clipsOf(state.cut)];
    const at = state.selected ? clips.indexOf(state.selected) : step > 0 ? -1 : clips.length;
    for (let i = at + step; i >= 0 && i < clips.length; i += step)
        if (clips[i].mark !== ARRIVED && !clips[i].isFaint)
            return select(clips[i]);
}

// The selected clip stays where it is, if it can be seen.
function anchorOfZoom() {
    const {selected} = state;
    const x = selected ? xOf(selected.track.view, selected.start) : -1;
    return x >= timeline.left && x <= timeline.scroller.clientWidth ? x : undefined;
}

// Head, legend and tools

function renderLegend() {
    for (const button of document.querySelectorAll('#legend button'))
        button.setAttribute('aria-pressed', String(!state.hidden.has(Number(button.value))));
    for (const swatch of document.querySelectorAll('#legend canvas'))
        drawSwatch(swatch, Number(swatch.dataset.mark));
}

function drawSwatch(canvas, mark) {
    const size = {width: 22, height: 14};
    const context = prepareCanvas(canvas, size);
    if (mark === ARRIVED) {
        context.fillStyle = palette.kinds.video.body;
        context.fillRect(0, 0, size.width, size.height);
    } else {
        fillPattern(context, mark, {x: 0, y: 0, ...size});
    }
}

// For each mark how often, and on how many clips.
function buildLegend() {
    const remarks = MARKS.map(() => 0);
    const clips = MARKS.map(() => 0);
    for (const remark of data.remarks)
        remarks[remark.mark] += remark.count;
    const mainViews = data.cuts.map(({views}) => ({views: [views[0] ?? views[1]]}));
    for (const cut of mainViews)
        for (const clip of clipsOf(cut))
            if (clip.kind !== TRANSITION)
                ++clips[clip.mark];
    for (const mark of data.marks) {
        const index = MARKS.indexOf(mark);
        const isArrived = index === ARRIVED;
        const count = isArrived ? countText(clips[index], 'clip') : numberText(remarks[index]);
        const button = element('button', {'type': 'button', 'value': index, 'aria-pressed': 'true'},
            element('canvas', {'data-mark': index, 'aria-hidden': 'true'}),
            element('span', {'aria-hidden': 'true'}, mark.symbol),
            element('span', {}, capitalized(mark.name)), element('strong', {}, count));
        button.addEventListener('click', () => toggleMark(index));
        document.getElementById('legend').append(button);
    }
}

function toggleMark(mark) {
    if (!state.hidden.delete(mark))
        state.hidden.add(mark);
    filter();
}

function renderTools() {
    document.getElementById('cut').value = String(data.cuts.indexOf(state.cut));
    document.getElementById('zoom-out').disabled = state.isFit;
    document.getElementById('zoom-in').disabled = timeline.scale >= maxScale() * 0.999;
}

function buildHead() {
    document.title = `${data.title} \u2013 ${data.account ? 'what arrived' : 'differences'}`;
    document.getElementById('title').textContent = data.title;
    const about = document.getElementById('about');
    const {account} = data;
    if (!account) {
        about.append('Comparison of two documents');
        document.getElementById('advice').textContent = 'Before and after';
        return;
    }
    const files = [account.input, account.output].filter(Boolean);
    files.forEach((file, index) => about.append(index ? ' \u2192 ' : '', quoted(file, 'path')));
    const tool = [account.tool?.name ?? account.tool, account.tool?.version];
    const made = [account.result, dateText(account.date), tool.filter(Boolean).join(' ')];
    about.append(element('div', {}, made.filter(Boolean).join(' \u00b7 ')));
}

function dateText(date) {
    const time = new Date(date ?? '');
    return Number.isNaN(time.getTime()) ? '' :
        time.toLocaleString('en', {dateStyle: 'long', timeStyle: 'short'});
}

function buildTools() {
    const select = document.getElementById('cut');
    const options = data.cuts.map((cut, index) => element('option', {value: index}, cutText(cut)));
    select.append(...options);
    select.addEventListener('change', () => showCut(data.cuts[select.value]));
    document.getElementById('search').addEventListener('input', ({target}) => {
        state.text = target.value.trim().toLowerCase();
        filter();
    });
    const onClick = (id, action) => document.getElementById(id).addEventListener('click', action);
    onClick('zoom-in', () => zoom(ZOOM_STEP));
    onClick('zoom-out', () => zoom(1 / ZOOM_STEP));
    onClick('fit', () => zoom(0));
    onClick('theme', () => showTheme(isDark() ? 'light' : 'dark'));
}

// 0 shows the whole cut.
function zoom(factor) {
    zoomTo(timeline.scale * factor, anchorOfZoom());
    renderTools();
}

// "Cut 1 (120 clips, 3 with remarks)"
function cutText(cut) {
    const clips = [...clipsOf({views: [cut.views[0] ?? cut.views[1]]})]
        .filter((clip) => clip.kind !== TRANSITION);
    const marked = clips.filter((clip) => clip.mark !== ARRIVED).length;
    const which = data.account ? 'with remarks' : 'that differ';
    return `${cut.name || 'Without name'} (${countText(clips.length, 'clip')}` +
        `${marked ? `, ${numberText(marked)} ${which}` : ''})`;
}

// Theme

const darkSystem = matchMedia('(prefers-color-scheme: dark)');

function isDark() {
    return document.documentElement.dataset.theme === 'dark';
}

function showTheme(theme) {
    document.documentElement.dataset.theme = theme;
    document.getElementById('theme').textContent = theme === 'dark' ? 'Light' : 'Dark';
    readPalette();
    renderLegend();
    scheduleDrawing();
}

// Paper is white.
function followSystem() {
    const themeOfSystem = () => darkSystem.matches ? 'dark' : 'light';
    let themeOfScreen = themeOfSystem();
    darkSystem.addEventListener('change', () => showTheme(themeOfSystem()));
    addEventListener('beforeprint', () => {
        themeOfScreen = document.documentElement.dataset.theme;
        showTheme('light');
        drawTimeline();
    });
    addEventListener('afterprint', () => showTheme(themeOfScreen));
    showTheme(themeOfSystem());
}

// Mouse and scrolling

function clipUnder({clientX, clientY}) {
    const box = timeline.canvas.getBoundingClientRect();
    return clipAt(clientX - box.left, clientY - box.top);
}

function listenToTimeline() {
    const {scroller} = timeline;
    scroller.addEventListener('scroll', scheduleDrawing);
    scroller.addEventListener('keydown', onKey);
    scroller.addEventListener('click', (event) => select(clipUnder(event)));
    scroller.addEventListener('pointermove', (event) => {
        const clip = clipUnder(event);
        scroller.title = clip ? summaryOf(clip) : '';
    });
    scroller.addEventListener('wheel', onWheel, {passive: false});
    document.getElementById('details').addEventListener('keydown', (event) => {
        if (event.key === 'Escape')
            scroller.focus();
    });
    new ResizeObserver(onResize).observe(scroller);
    addEventListener('resize', onResize);
}

function onWheel(event) {
    if (!event.ctrlKey)
        return;
    event.preventDefault();
    const x = event.clientX - timeline.canvas.getBoundingClientRect().left;
    zoomTo(timeline.scale * Math.exp(-event.deltaY / 300), Math.max(x, timeline.left));
    renderTools();
}

function onResize() {
    if (!state.cut)
        return;
    sizeTimeline();
    scheduleDrawing();
}

function listenToOverview() {
    const {overview, scroller} = timeline;
    const scrollTo = (event) => {
        if (event.buttons !== 1)
            return;
        const box = overview.getBoundingClientRect();
        const seconds = (event.clientX - box.left) / box.width * timeline.seconds;
        const width = scroller.clientWidth - timeline.left;
        scroller.scrollLeft = seconds * timeline.scale - width / 2;
    };
    overview.addEventListener('pointerdown', (event) => {
        overview.setPointerCapture(event.pointerId);
        scrollTo(event);
    });
    overview.addEventListener('pointermove', scrollTo);
}

function start() {
    buildHead();
    buildLegend();
    buildTable(data.groups);
    buildTools();
    document.getElementById('tools').hidden = !state.cut && data.remarks.length === 0;
    document.getElementById('cuts').hidden = !state.cut;
    document.getElementById('details').hidden = !state.cut;
    followSystem();
    if (state.cut)
        showCut(state.cut);
    else
        render();
    listenToTimeline();
    listenToOverview();
}

start();
