// Right and wrong uses of the test driver: every wrong one is announced.
import { GuiWindow } from '../../../host/node';
import { DriveError, dialog, drive, launch } from '../../../host/node/test';
import type { DrivenWindow, Found } from '../../../host/node/test';

export async function right(): Promise<void> {
    const w: DrivenWindow = await drive(new GuiWindow('page.html'), { timeout: 100 });
    await w.click('save');
    await w.click({ link: 'Next', nth: 1 }, { modifiers: 'Ctrl' });
    await w.doubleClick({ row: 'b', in: 'list' });
    await w.rightClick({ row: 'b', in: { name: 'list' } });
    await w.hover('map');
    await w.type('Ann');
    await w.type('who', 'Ann', { append: true, timeout: 7 });
    await w.press('Ctrl+S');
    await w.select('list', 'b');
    await w.check({ name: 'color', value: 'red' });
    await w.uncheck('agree');
    await w.menu('File', 'Open');
    const text: string = await w.text() + await w.text('total');
    const value: string | number | boolean | null = await w.value('who');
    const first: string = (await w.rows('list'))[0].value;
    const found: Found | null = await w.find({ button: 'Save' });
    const path: string = await w.screenshot('x.png');
    await w.matches('x.png', { tolerance: 3, pixels: 7 });
    await w.idle();
    await w.close({ timeout: 7 });
    await (await dialog()).click('OK');
    const app = await launch(new URL('file:///app.js'), { args: ['x'], env: { A: 'b' }, cwd: '/', execArgv: [] });
    await (await app.window('Order')).click('order');
    await (await app.dialog()).click('OK');
    const code: number | null = await app.close();
    const error = new DriveError('x');
    const mark: 'TARN_DRIVE' = error.code;
    console.log(text, value, first, found?.enabled, path, code, mark, app.stdout, (await app.exit).signal, await drive('Order'));
}

export async function wrong(w: DrivenWindow): Promise<void> {
    // @ts-expect-error a window, or a title
    await drive(7);
    // @ts-expect-error there is no such verb
    await w.clik('save');
    // @ts-expect-error a target
    await w.click(7);
    // @ts-expect-error there is no such way to ask
    await w.click({ lnk: 'Next' });
    // @ts-expect-error a text is missing
    await w.type();
    // @ts-expect-error what to choose is missing
    await w.select('list');
    // @ts-expect-error a text
    await w.press(7);
    // @ts-expect-error one row is no text
    const row: string = (await w.rows('list'))[0];
    // @ts-expect-error there is no such option
    await launch('app.js', { arg: [] });
    console.log(row);
}
