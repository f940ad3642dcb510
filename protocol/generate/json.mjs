const WIDTH = 100;

/** JSON as people write it: what fits on a line stands on one. */
export function json(value, indent = '', taken = 0) {
    const short = onOneLine(value);
    if (typeof value !== 'object' || value === null || taken + short.length <= WIDTH) {
        return short;
    }
    const inner = `${indent}  `;
    const isList = Array.isArray(value);
    const items = Object.entries(value).map(([key, item], index, { length }) => {
        const start = isList ? inner : `${inner}${JSON.stringify(key)}: `;
        const comma = index < length - 1 ? ',' : '';
        return start + json(item, inner, start.length + comma.length) + comma;
    });
    const [open, close] = isList ? '[]' : '{}';
    return [open, ...items, indent + close].join('\n');
}

function onOneLine(value) {
    if (typeof value !== 'object' || value === null) {
        return JSON.stringify(value);
    }
    if (Array.isArray(value)) {
        return `[${value.map(onOneLine).join(', ')}]`;
    }
    const members = Object.entries(value).map(
        ([key, item]) => `${JSON.stringify(key)}: ${onOneLine(item)}`,
    );
    return `{${members.join(', ')}}`;
}
