// The data of the page: cuts with their tracks and clips, and the list of what happened to them.
//
// A cut is a sequence, or two that are compared: it has a view for each. The clips of a track are
// its clips and transitions by start. A remark is an item of the account or a difference; its
// `clips` are those that it is about.

// What can become of a clip, worst first; the last is for all without a remark.
const MARKS = [
    {id: 'lost', name: 'lost', symbol: '\u2715'},
    {id: 'moved', name: 'moved', symbol: '\u2192'},
    {id: 'changed', name: 'changed', symbol: '\u2260'},
    {id: 'skipped', name: 'skipped', symbol: '\u2013'},
    {id: 'assumed', name: 'assumed', symbol: '?'},
    {id: 'added', name: 'added', symbol: '+'},
    {id: 'arrived', name: 'arrived', symbol: '\u2713'},
];
const ARRIVED = MARKS.length - 1;
const MARKS_OF_ACCOUNT = ['lost', 'changed', 'skipped', 'assumed', 'arrived'];
const MARKS_OF_COMPARISON = ['lost', 'moved', 'changed', 'added', 'arrived'];

// By the numbers that the timelines have for them.
const CLIP_KINDS = ['clip', 'clip', 'nested sequence', 'multiclip', 'generator', 'title'];
const SWITCHED_OFF = 8;
const TRANSITION = 'transition';

const OF_DOCUMENT = 'Document';

function readJson(id) {
    return JSON.parse(document.getElementById(id).textContent);
}

function readData() {
    const account = readJson('account');
    const timelines = readJson('timelines');
    const projects = timelines.projects.map((project) => decodeProject(project, timelines.texts));
    const remarks = account ? remarksOfAccount(account) : [];
    remarks.push(...remarksOfDifferences(timelines.differences, timelines.texts));
    const data = {
        title: timelines.title,
        account,
        isComparison: projects.length > 1,
        projects,
        cuts: pairSequences(projects, remarks),
        remarks,
    };
    data.marks = marksOf(data);
    assignRemarks(data);
    data.groups = groupRemarks(remarks);
    return data;
}

function marksOf(data) {
    const ids = new Set([...(data.account ? MARKS_OF_ACCOUNT : []),
        ...(data.isComparison ? MARKS_OF_COMPARISON : [])]);
    if (!data.account)
        MARKS[ARRIVED].name = 'unchanged';
    return MARKS.filter((mark) => ids.has(mark.id));
}

// Timelines

function decodeProject(project, texts) {
    return {
        name: texts[project.name],
        sequences: project.sequences.map((sequence) => decodeSequence(sequence, texts)),
    };
}

function decodeSequence(sequence, texts) {
    const {base, drop, start, frame} = sequence;
    const tracks = sequence.tracks.map((track) => decodeTrack(track, texts));
    // As they are drawn: video from the highest track down, then audio.
    const video = tracks.filter((track) => track.isVideo).reverse();
    const audio = tracks.filter((track) => !track.isVideo);
    const view = {
        name: texts[sequence.name],
        frameSeconds: frame,
        base, drop, start,
        tracks: [...video, ...audio],
        tracksOfDocument: tracks,
        length: 0,
    };
    for (const track of tracks) {
        track.view = view;
        view.length = Math.max(view.length, track.latestEnds.at(-1) ?? 0);
    }
    return view;
}

function decodeTrack(track, texts) {
    const result = {
        id: track.id,
        name: texts[track.name],
        isVideo: track.id.startsWith('V'),
        enabled: track.enabled,
        locked: track.locked,
        remarks: [], // of the track itself
    };
    const clips = decodeRanges(track.clips, 5, (name, source, kind) => ({
        name: texts[name],
        source: texts[source],
        kind: CLIP_KINDS[kind % SWITCHED_OFF],
        enabled: kind < SWITCHED_OFF,
    }));
    const transitions = decodeRanges(track.transitions, 3,
        (name) => ({name: texts[name], source: '', kind: TRANSITION, enabled: true}));
    result.clipsOfDocument = clips;
    result.clips = [...clips, ...transitions]
        .filter((clip) => clip.start >= 0 && clip.end >= clip.start)
        .sort((a, b) => a.start - b.start || compareTexts(a.name, b.name));
    for (const clip of result.clips)
        clip.track = result;
    result.latestEnds = latestEnds(result.clips);
    return result;
}

// Rows of `width` numbers: the gap to the end before, the length, and what `detailsOf` takes.
function decodeRanges(numbers, width, detailsOf) {
    const ranges = [];
    let end = 0;
    for (let at = 0; at < numbers.length; at += width) {
        const start = end + numbers[at];
        end = start + numbers[at + 1];
        const details = detailsOf(...numbers.slice(at + 2, at + width));
        ranges.push({...details, start, end, mark: ARRIVED, remarks: []});
    }
    return ranges;
}

// By code units, which needs no language.
function compareTexts(a, b) {
    return a < b ? -1 : Number(a > b);
}

// For each clip the latest end up to it, which is sorted even if clips overlap.
function latestEnds(clips) {
    let latest = 0;
    return clips.map((clip) => latest = Math.max(latest, clip.end));
}

// The index of the first that is not `isBefore`, in a list where those that are come first.
function firstIndex(list, isBefore) {
    let low = 0;
    let high = list.length;
    while (low < high) {
        const middle = (low + high) >> 1;
        if (isBefore(list[middle]))
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

// Sequences of one name are a pair, in their order; a difference of the name states the others.
function pairSequences(projects, remarks) {
    const [first = {sequences: []}, second = {sequences: []}] = projects;
    const rest = [...second.sequences];
    const take = (name) => {
        const at = rest.findIndex((sequence) => sequence.name === name);
        return at < 0 ? null : rest.splice(at, 1)[0];
    };
    const cuts = first.sequences.map((sequence) => ({
        name: sequence.name,
        views: [sequence, take(sequence.name)],
    }));
    const renamed = remarks.filter((remark) => remark.kind === 'sequence name');
    for (const {sequence, after} of renamed) {
        const cut = cuts.find(({name, views}) => name === sequence && !views[1]);
        if (cut)
            cut.views[1] = take(after);
    }
    return [...cuts, ...rest.map((sequence) => ({name: sequence.name, views: [null, sequence]}))];
}

// Timecodes. With drop frame the numbers 0 and 1 of each minute but each tenth are skipped, at 60
// frames a second 0 to 3: the number of a frame is then ahead of the count of frames.

function droppedNumbers({base, drop}) {
    return drop && (base === 30 || base === 60) ? base / 15 : 0;
}

function numberOfFrame(view, frame) {
    const dropped = droppedNumbers(view);
    const minute = view.base * 60 - dropped;
    const tenMinutes = minute * 10 + dropped;
    const count = Math.abs(view.start + frame);
    const tens = Math.floor(count / tenMinutes);
    const minutes = Math.max(0, Math.floor((count % tenMinutes - dropped) / minute));
    return (count + dropped * (9 * tens + minutes)) * (view.start + frame < 0 ? -1 : 1);
}

// That of the next one for a number that is skipped.
function frameOfNumber(view, number) {
    const minutes = Math.floor(number / (view.base * 60));
    const skipped = droppedNumbers(view) * (minutes - Math.floor(minutes / 10));
    const isSkipped = minutes % 10 !== 0 && number % (view.base * 60) < droppedNumbers(view);
    const next = isSkipped ? minutes * view.base * 60 + droppedNumbers(view) : number;
    return next - skipped - view.start;
}

// "01:00:04:00"; the day begins anew after 24 hours.
function timecode(view, frame) {
    const number = numberOfFrame(view, frame);
    const seconds = Math.floor(Math.abs(number) / view.base);
    const parts = [Math.floor(seconds / 3600) % 24, Math.floor(seconds / 60) % 60, seconds % 60,
        Math.abs(number) % view.base];
    const mark = droppedNumbers(view) > 0 ? ';' : ':';
    const text = parts.map((part) => String(part).padStart(2, '0')).join(mark);
    return number < 0 ? `-${text}` : text;
}

// Remarks

function remarksOfAccount(account) {
    return account.items.map((item) => ({
        ...item,
        mark: markOf(item.outcome),
        markOfClip: markOf(item.outcome),
        count: item.count ?? 1,
        topic: item.kind.split('.')[0],
        heading: capitalized(item.kind.replace('.', ': ').replaceAll(/[._-]/g, ' ')),
        changes: '',
        clips: [],
    }));
}

function remarksOfDifferences(rows, texts) {
    return rows.map((row) => {
        const [startFrame, first, second] = row.slice(-3);
        const [change, subject, sequence, bin, track, name, start, property, before, after] =
            row.slice(0, -3).map((index) => texts[index]);
        const isWhole = property === '';
        const frame = subject === 'track' ? null : startFrame;
        return {
            kind: `${subject} ${property || change}`,
            mark: markOf(change),
            // A clip that has lost an effect is one that has changed.
            markOfClip: markOf(isWhole || change === 'moved' ? change : 'changed'),
            count: 1,
            topic: isWhole ? subject : property,
            heading: capitalized(isWhole ? `${subject}s ${change}` : `${subject}: ${property}`),
            changes: isWhole ? '' : `${before || 'nothing'} \u2192 ${after || 'nothing'}`,
            locations: [first, second],
            sequence, bin, track, frame, start, property, after,
            clip: name,
            subject: isWhole ? name : '',
            clips: [],
        };
    });
}

function markOf(outcome) {
    return Math.max(0, MARKS.findIndex((mark) => mark.id === outcome));
}

function capitalized(text) {
    return text.charAt(0).toUpperCase() + text.slice(1);
}

// Gives each remark its clips, and each clip and track its remarks. A difference states the indices
// of both clips; an item of the account is where its sequence, track and frame are.
function assignRemarks({projects, remarks}) {
    const sequences = new Map(); // by name
    for (const sequence of projects[0]?.sequences ?? [])
        sequences.set(sequence.name, [...sequences.get(sequence.name) ?? [], sequence]);
    const counts = new Map();
    for (const remark of remarks) {
        if (remark.locations) {
            assignDifference(remark, projects);
            continue;
        }
        const track = trackOf(remark, sequences.get(remark.sequence) ?? [], counts);
        if (track)
            assignRemark(remark, track, findClip(track, remark.frame, remark.clip));
    }
}

// Of several sequences of one name it is one that has the clip. Remarks of the same words are about
// one after the other; `counts` has how many there were.
function trackOf(remark, sequences, counts) {
    const tracks = sequences.flatMap(({tracks}) => tracks.filter(({id}) => id === remark.track));
    if (tracks.length < 2)
        return tracks[0];
    const named = tracks.filter((track) =>
        findClip(track, remark.frame, remark.clip)?.name === remark.clip);
    const {sequence, track, frame, clip, kind, subject} = remark;
    const words = [sequence, track, frame, clip, kind, subject].join('\n');
    const count = counts.get(words) ?? 0;
    counts.set(words, count + 1);
    return named.length > 0 ? named[count % named.length] : tracks[0];
}

// A transition has no index. One that has moved is found where it starts now.
function assignDifference(remark, projects) {
    remark.locations.forEach(([sequence, trackIndex, clipIndex], side) => {
        const track = projects[side]?.sequences[sequence]?.tracksOfDocument[trackIndex];
        if (!track)
            return;
        const hasMoved = side === 1 && remark.property === 'start';
        const frame = hasMoved ? parseInt(remark.after, 10) : remark.frame;
        const clip = track.clipsOfDocument[clipIndex] ?? findClip(track, frame, remark.clip);
        assignRemark(remark, track, clip);
    });
}

function assignRemark(remark, track, clip) {
    if (!clip) {
        track.remarks.push(remark);
        return;
    }
    clip.remarks.push(remark);
    clip.mark = Math.min(clip.mark, remark.markOfClip);
    remark.clips.push(clip);
}

// The clip of that name that starts there, else any that does.
function findClip(track, frame, name) {
    const {clips} = track;
    const first = firstIndex(clips, (clip) => clip.start < frame);
    const named = firstIndex(clips, (clip) =>
        clip.start < frame || (clip.start === frame && compareTexts(clip.name, name) < 0));
    const found = clips[named]?.name === name ? clips[named] : clips[first];
    return found?.start === frame ? found : null;
}

// One group for each kind and outcome, worst first.
function groupRemarks(remarks) {
    const groups = new Map();
    for (const remark of remarks) {
        const key = `${remark.mark} ${remark.kind}`;
        if (!groups.has(key))
            groups.set(key, {kind: remark.kind, mark: remark.mark, heading: remark.heading,
                remarks: []});
        const group = groups.get(key);
        group.remarks.push(remark);
        remark.group = group;
    }
    for (const group of groups.values())
        countGroup(group, group.remarks);
    return [...groups.values()].sort((a, b) =>
        a.mark - b.mark || b.clipCount - a.clipCount || b.count - a.count);
}

// What of a group passes the filter.
function countGroup(group, shown) {
    group.shown = shown;
    group.count = shown.reduce((sum, remark) => sum + remark.count, 0);
    group.clips = new Set(shown.flatMap((remark) => remark.clips));
    // Those of a comparison are the same in both cuts.
    group.clipCount = new Set(shown.map((remark) => remark.clips[0]).filter(Boolean)).size;
}

// Texts for people

// "lost: effect Sepia"
function remarkText(remark) {
    const texts = [remark.topic, remark.subject, remark.changes];
    return `${MARKS[remark.mark].name}: ${texts.filter(Boolean).join(' ')}`;
}

function rangeText(clip) {
    const {view} = clip.track;
    return `${timecode(view, clip.start)} to ${timecode(view, clip.end)}`;
}

// "V1, A001, 01:00:00:00 to 01:00:04:00, lost: effect Sepia"
function summaryOf(clip) {
    const texts = clip.remarks.slice(0, 3).map(remarkText);
    if (clip.remarks.length > 3)
        texts.push(`and ${clip.remarks.length - 3} more`);
    if (texts.length === 0)
        texts.push(MARKS[ARRIVED].name);
    return [clipText(clip), ...texts].join(', ');
}

// "V1, A001, 01:00:00:00 to 01:00:04:00"
function clipText(clip) {
    const name = clip.kind === 'clip' ? clip.name : `${clip.kind} ${clip.name}`;
    return `${clip.track.id}, ${name || 'without name'}, ${rangeText(clip)}`;
}

// What the filter looks for, made when it is first used.
function searchTextOf(remark) {
    const {heading, kind, clip, subject, changes, reason, remedy, sequence, track} = remark;
    const texts = [heading, kind, clip, subject, changes, reason, remedy, sequence, track];
    remark.searchText ??= texts.filter(Boolean).join('\n').toLowerCase();
    return remark.searchText;
}

// "Cut 1, V1, A001, 01:00:00:00 to 01:00:04:00", as far as the remark has them; the sequence only
// where there are several.
function locationText(remark) {
    const sequence = remark.track && data.cuts.length === 1 ? '' : remark.sequence;
    const time = [remark.start, remark.end].filter(Boolean).join(' to ');
    const parts = [sequence, remark.bin, remark.track, remark.clip, time];
    return parts.filter(Boolean).join(', ') || OF_DOCUMENT;
}

const numberFormat = new Intl.NumberFormat('en');

function numberText(number) {
    return numberFormat.format(number);
}

function countText(count, noun) {
    return `${numberText(count)} ${noun}${count === 1 ? '' : 's'}`;
}
