// The pictures of the rooms in docs/architecture.md, made from the table that is checked.

const begin = '<!-- rooms: made by tools/check-rooms.mjs --write -->\n';
const end = '<!-- /rooms -->';
/** More rooms than that make no picture that anyone can read, but a list. */
const mostInPicture = 12;

const idOf = (room) => room.replace(/\W+/g, '_');

/** Arrows from who knows to who is known; rooms of other groups stand outside the frame. */
function picture({ name, rooms }) {
    const inside = Object.keys(rooms).map((room) => `    ${idOf(room)}["${room}"]`);
    const outside = [...new Set(Object.values(rooms).flat())].filter((room) => !(room in rooms));
    const arrows = Object.entries(rooms).flatMap(([room, known]) =>
        known.map((other) => `  ${idOf(room)} --> ${idOf(other)}`),
    );
    return [
        '```mermaid',
        'graph LR',
        `  subgraph ${idOf(name)}["${name}"]`,
        ...inside,
        '  end',
        ...outside.map((room) => `  ${idOf(room)}(["${room}"])`),
        ...arrows,
        '```',
    ];
}

function list({ rooms }) {
    const lines = Object.entries(rooms).map(
        ([room, known]) =>
            `| \`${room}\` | ${known.map((other) => `\`${other}\``).join(', ') || 'nothing'} |`,
    );
    return ['| Room | May know |', '|---|---|', ...lines];
}

/** The guide's text with the pictures of these groups in their place. */
export function pictures(text, groups) {
    const drawn = groups.flatMap((group) => [
        `### ${group.name}`,
        '',
        ...(Object.keys(group.rooms).length > mostInPicture ? list(group) : picture(group)),
        '',
    ]);
    const [before, rest] = text.split(begin);
    const after = rest?.split(end)[1];
    if (after === undefined)
        throw new Error('docs/architecture.md has no place for the pictures of the rooms');
    return before + begin + drawn.join('\n') + end + after;
}
