/** Says of a file that it is made; tools that count or format lines look for it. */
export const mark = 'Made from protocol/ by protocol/generate.mjs; do not edit.';
