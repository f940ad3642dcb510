import assert from 'node:assert/strict';
import { openTab } from '../../client/test/support/chromium.mjs';
import { chromiumOnly, inEach } from './support/engines.mjs';
import { Program } from './support/Program.mjs';
import { User } from './support/User.mjs';

/** A user in front of the dialog of a started console. */
class Visit extends User {
    static async to(browser, program, faults) {
        const page = await openTab(await browser.newContext(), faults);
        await page.goto(program.address);
        await page.getByRole('dialog', { name: 'Script console' }).waitFor();
        return new Visit(page);
    }

    output = () => this.page.locator('.text').first();
    sees = (text) => this.output().filter({ hasText: text }).waitFor();

    async run(line) {
        await this.fill('Lua', line);
        await this.push('Run');
    }
}

function visits(story, start, play) {
    inEach(chromiumOnly, story, async (browser) => {
        const faults = [];
        const program = await start();
        const visit = await Visit.to(browser, program, faults);
        try {
            await play(visit, program);
        } finally {
            await visit.page.context().close();
            await program.end();
        }
        assert.deepEqual(faults, []);
    });
}

visits(
    'the script, the terminal and the dialog share one console',
    () => Program.startOnTerminal('dova-host', '--serve', '-e', 'shared = {"script"}'),
    async (visit, program) => {
        await visit.run('shared[2] = "dialog"');
        program.type('shared[3] = "term');
        await program.echoes('shared[3] = "term');
        await visit.run('print("meanwhile")');
        await program.echoes('meanwhile');
        program.type('inal"\r');
        program.type('print(table.concat(shared, "+"))\r');
        await visit.sees('script+dialog+terminal');
        await visit.run('table.concat(shared, "-")');
        await visit.sees('script-dialog-terminal');
        await visit.run('error("wrong")');
        await visit.sees('stdin:1: wrong');
        await visit.run('while');
        await visit.sees('unexpected symbol near <eof>');
        assert.ok(program.output.some((line) => line.includes('script-dialog-terminal')));
        program.type('os.exit(4)\r');
        assert.equal(await program.ended(), 4);
    },
);

visits(
    'a script loads the module itself, and the dialog shows the last lines only',
    () => Program.start('dova-host', '--serve', '--no-module', '-e', 'host.loadModule()'),
    async (visit, program) => {
        await visit.run('for i = 1, 1000 do print("line " .. i) end');
        await visit.sees(/^line 981\n(.+\n)*line 1000$/);
        await visit.run('print(("word "):rep(79)) print(("word "):rep(79)) print("the end")');
        await visit.sees(/^line 993\n(.+\n)*the end$/);
        const [output, line] = await Promise.all(
            [visit.output(), visit.field('Lua')].map((each) => each.boundingBox()),
        );
        assert.ok(output.y + output.height <= line.y, 'the end is above the line to type in');
        await visit.run('print(host.address())');
        await visit.sees(program.address);
        await visit.run('os.exit(true)');
        assert.equal(await program.ended(), 0);
        assert.equal(program.errors, '');
    },
);
