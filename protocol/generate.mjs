// Makes everything that says what the table says too: generate.mjs writes it, generate.mjs --check
// compares it with what is checked in and exits 1 if there is a difference.

import { readFileSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';

import { raw } from './table.mjs';

const root = new URL('../', import.meta.url);
const isChecking = process.argv.includes('--check');

function refuseUnlessValid() {
    const Ajv = createRequire(new URL('client/package.json', root))('ajv');
    const schema = JSON.parse(readFileSync(new URL('protocol/table.schema.json', root), 'utf8'));
    const ajv = new Ajv({ allErrors: true });
    if (!ajv.validate(schema, raw)) {
        throw new Error(ajv.errorsText(ajv.errors, { dataVar: 'protocol', separator: '\n' }));
    }
}

function present(path) {
    try {
        return readFileSync(new URL(path, root), 'utf8');
    } catch {
        return undefined;
    }
}

refuseUnlessValid();
const makers = ['cpp', 'typescript', 'schemas', 'document', 'examples', 'guide'];
const made = await Promise.all(makers.map((maker) => import(`./generate/${maker}.mjs`)));
const outputs = made.flatMap((maker) => maker.outputs);
const stale = outputs.filter(([path, text]) => present(path) !== text);
for (const [path, text] of stale) {
    if (isChecking) {
        console.error(`${path}: not what protocol/ says; run node protocol/generate.mjs`);
    } else {
        writeFileSync(new URL(path, root), text);
        console.log(path);
    }
}
console.log(`protocol: ${outputs.length} files made, ${stale.length} differed`);
process.exitCode = isChecking && stale.length > 0 ? 1 : 0;
