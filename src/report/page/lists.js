// What happened as lists: the table of groups, what is in the open group, and the selected clip.

const LIST_STEP = 200;
const SUMMARY_LENGTH = 3; // of lists in the table

// Children are elements or texts.
function element(tag, attributes = {}, ...children) {
    const result = document.createElement(tag);
    for (const [key, value] of Object.entries(attributes))
        result.setAttribute(key, value);
    for (const child of children)
        result.append(typeof child === 'string' ? document.createTextNode(child) : child);
    return result;
}

// A text out of a document, whose direction must not affect what is around it.
function quoted(text, className = 'name') {
    return element('bdi', {class: className}, text);
}

function badge(mark) {
    const {id, symbol, name} = MARKS[mark];
    return element('span', {class: `badge ${id}`},
        element('span', {'aria-hidden': 'true'}, symbol), name);
}

// The table of groups

// Two rows for each group: its summary, and the list that opens below.
function buildTable(groups) {
    const body = document.getElementById('groups');
    for (const group of groups) {
        group.button = element('button', {type: 'button', class: 'group'}, group.heading);
        group.button.addEventListener('click', () => toggleGroup(group));
        group.cells = {
            count: element('td', {'class': 'number', 'data-label': 'Count'}),
            clips: element('td', {'class': 'number', 'data-label': 'Clips'}),
            locations: element('td', {class: 'locations'}),
        };
        group.row = element('tr', {class: 'summary'},
            element('td', {}, badge(group.mark)),
            element('th', {scope: 'row'}, group.button, subjectsOf(group)),
            group.cells.count, group.cells.clips, group.cells.locations,
            data.account ? adviceCell(group) : changesCell(group.remarks));
        group.list = element('td', {colspan: '6'});
        group.listRow = element('tr', {class: 'list', hidden: ''}, group.list);
        body.append(group.row, group.listRow);
    }
}

// The reasons of a kind may name what they are about.
function adviceCell(group) {
    const texts = (key) =>
        [...new Set(group.remarks.map((remark) => remark[key]))].filter(Boolean);
    const cell = element('td', {class: 'advice'});
    for (const key of ['reason', 'remedy'])
        for (const text of withRest(texts(key)))
            cell.append(element('p', {class: key}, text));
    return cell;
}

// The first texts of a list, and how many more there are.
function withRest(texts) {
    const rest = texts.length - SUMMARY_LENGTH;
    return rest > 0 ? [...texts.slice(0, SUMMARY_LENGTH), `and ${numberText(rest)} more`] : texts;
}

function changesCell(remarks) {
    const changes = remarks.map((remark) => remark.changes).filter(Boolean);
    return element('td', {class: 'advice'},
        ...withRest(changes).map((text) => element('div', {}, quoted(text))));
}

// "Sepia (12), Blur (3)": what it happened to, the most frequent first.
function subjectsOf(group) {
    const counts = new Map();
    for (const {subject, count} of group.remarks)
        if (subject)
            counts.set(subject, (counts.get(subject) ?? 0) + count);
    const most = [...counts].sort((a, b) => b[1] - a[1]);
    const result = element('div', {class: 'subjects'});
    most.slice(0, SUMMARY_LENGTH).forEach(([subject, count], index) => {
        result.append(index ? ', ' : '', quoted(subject), count > 1 ? ` (${count})` : '');
    });
    if (most.length > SUMMARY_LENGTH)
        result.append(`, and ${most.length - SUMMARY_LENGTH} more`);
    return result;
}

function renderTable() {
    const shown = data.groups.filter((group) => group.shown.length > 0);
    for (const group of data.groups) {
        group.row.hidden = group.shown.length === 0;
        const isOpen = group === state.group && !group.row.hidden;
        group.button.setAttribute('aria-expanded', String(isOpen));
        group.row.classList.toggle('open', isOpen);
        group.listRow.hidden = !isOpen;
        group.cells.count.textContent = numberText(group.count);
        group.cells.clips.textContent = group.clipCount ? numberText(group.clipCount) : '\u2013';
        group.cells.locations.replaceChildren(...firstLocations(group));
        renderList(group, isOpen ? group.shown.slice(0, state.shownInGroup) : []);
    }
    const count = shown.reduce((sum, group) => sum + group.count, 0);
    const counts = [countText(count, data.account ? 'remark' : 'difference'),
        countText(shown.length, 'kind')];
    document.getElementById('remark-count').textContent =
        data.remarks.length > 0 ? counts.join(' of ') : '';
    document.getElementById('table').hidden = shown.length === 0;
    const nothing = document.getElementById('nothing');
    nothing.hidden = shown.length > 0;
    nothing.textContent = data.remarks.length > 0 ? 'Nothing matches the filter.' :
        data.account ? 'Everything arrived as it was.' : 'No differences.';
}

function firstLocations(group) {
    return group.shown.slice(0, SUMMARY_LENGTH).map((remark) => {
        const text = [remark.track, remark.start].filter(Boolean).join(' ') || remark.sequence;
        return element('div', {}, quoted(text || OF_DOCUMENT));
    });
}

// Built anew only if it changes: the focus may be in it.
function renderList(group, remarks) {
    const listed = group.listed ?? [];
    if (remarks.length === listed.length && remarks.every((remark, i) => remark === listed[i]))
        return;
    group.listed = remarks;
    const lines = remarks.map((remark) => remarkLine(remark, group.remarks[0]));
    group.list.replaceChildren(element('ol', {class: 'remarks'}, ...lines));
    const rest = group.shown.length - remarks.length;
    if (remarks.length === 0 || rest === 0)
        return;
    const more = element('button', {type: 'button', class: 'more'},
        `Show ${Math.min(rest, LIST_STEP)} of ${numberText(rest)} more`);
    more.addEventListener('click', () => showMore(group));
    group.list.append(more);
}

function showMore(group) {
    const next = state.shownInGroup;
    state.shownInGroup += LIST_STEP;
    renderTable();
    const line = group.list.querySelectorAll('ol > li')[next];
    line.tabIndex = -1;
    line.focus();
}

// Reason and remedy only where they are not those of the first of the group.
function remarkLine(remark, typical) {
    const line = element('li');
    const [clip] = remark.clips;
    if (clip) {
        const button = element('button', {type: 'button', class: 'location'},
            quoted(locationText(remark)));
        button.addEventListener('click', () => goToClip(clip));
        line.append(button);
    } else {
        line.append(quoted(locationText(remark), 'location'));
    }
    for (const text of [remark.subject, remark.changes])
        if (text)
            line.append(' ', quoted(text));
    if (remark.count > 1)
        line.append(` \u00d7 ${numberText(remark.count)}`);
    for (const key of ['reason', 'remedy'])
        if (remark[key] && remark[key] !== typical[key])
            line.append(' ', element('span', {class: key}, remark[key]));
    if (!remark.sequence && remark.path)
        line.append(' ', quoted(remark.path, 'path'));
    return line;
}

// The selected clip

function renderDetails() {
    const clip = state.selected;
    const panel = document.getElementById('details');
    if (panel.shownClip === clip && panel.hasChildNodes())
        return;
    panel.shownClip = clip;
    panel.replaceChildren(...(clip ? detailsOf(clip) : [
        element('h2', {id: 'details-heading', tabindex: '-1'}, 'No clip selected'),
        element('p', {}, 'Select a clip of the timeline to see what happened to it.')]));
}

function detailsOf(clip) {
    const {track} = clip;
    const frames = clip.end - clip.start;
    const length = timecode({...track.view, start: 0}, frames);
    const facts = [
        ['Track', [track.id, track.name].filter(Boolean).join(', ')],
        ['Time', rangeText(clip)],
        ['Length', `${length} (${countText(frames, 'frame')})`],
        ['Source', clip.source],
        ['Kind', clip.kind + (clip.enabled ? '' : ', switched off')],
    ];
    const list = element('dl');
    for (const [term, text] of facts)
        if (text)
            list.append(element('dt', {}, term), element('dd', {}, quoted(text)));
    return [
        element('h2', {id: 'details-heading', tabindex: '-1'}, quoted(clip.name || 'Without name')),
        list,
        element('h3', {}, 'What happened to it'),
        clip.remarks.length > 0 ? remarksOfClip(clip) : element('p', {}, badge(ARRIVED)),
        ...linkToSequence(clip),
    ];
}

function remarksOfClip(clip) {
    const list = element('ul', {class: 'happened'});
    for (const remark of clip.remarks.slice(0, LIST_STEP)) {
        const line = element('li', {}, badge(remark.mark), ' ', remark.heading);
        for (const text of [remark.subject, remark.changes])
            if (text)
                line.append(element('div', {}, quoted(text)));
        for (const key of ['reason', 'remedy'])
            if (remark[key])
                line.append(element('p', {class: key}, remark[key]));
        list.append(line);
    }
    if (clip.remarks.length > LIST_STEP)
        list.append(element('li', {}, `and ${clip.remarks.length - LIST_STEP} more`));
    return list;
}

// A nested sequence can be opened.
function linkToSequence(clip) {
    const cut = clip.kind === 'nested sequence' &&
        data.cuts.find(({name}) => name === clip.source || name === clip.name);
    if (!cut)
        return [];
    const button = element('button', {type: 'button'}, 'Open the sequence ', quoted(cut.name));
    button.addEventListener('click', () => showCut(cut));
    return [button];
}
