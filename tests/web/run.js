// Plays an exported lesson in headless Chromium and checks it against the states the program's
// clock gives (written by tst_webexport): boxes at chosen seconds, a key, a click and an
// automatic goto changing the scene, the video following the clock, project texts staying text,
// no request leaving the disk, the SCORM package reporting to scorm-again's runtime, and a quiz
// made by the wizard answered right and wrong in it, with the score it reports.
import puppeteer from 'puppeteer-core';
import { readFileSync } from 'node:fs';
import { dirname, join } from 'node:path';
import { fileURLToPath, pathToFileURL } from 'node:url';

const setup = JSON.parse(readFileSync(process.argv[2], 'utf8'));
const [width, height] = setup.stage;
const here = dirname(fileURLToPath(import.meta.url));
const evil = '</script><script>alert(1)</script>';

const browser = await puppeteer.launch({
    executablePath: process.env.CHROMIUM || '/usr/bin/chromium',
    headless: true,
    // --no-sandbox: CI runs as root. Sound waits for a gesture, so the start button shows.
    args: ['--no-sandbox', '--allow-file-access-from-files',
        '--autoplay-policy=document-user-activation-required'],
    defaultViewport: { width, height },
});

const foreign = [];
const dialogs = [];
const errors = [];
const results = [];

function expect(condition, message) {
    if (!condition) throw new Error(message);
}

async function check(name, body) {
    try {
        await body();
        results.push(`ok   ${name}`);
    } catch (error) {
        results.push(`FAIL ${name}: ${error.message}`);
    }
}

async function open(url) {
    const page = await browser.newPage();
    await page.setRequestInterception(true);
    page.on('request', (request) => {
        if (/^(file|blob|data):/.test(request.url())) request.continue();
        else {
            foreign.push(request.url());
            request.abort();
        }
    });
    page.on('dialog', (dialog) => {
        dialogs.push(dialog.message());
        dialog.dismiss();
    });
    page.on('pageerror', (error) => errors.push(error.message));
    await page.goto(url);
    return page;
}

const lessonUrl = (hash) => `${pathToFileURL(setup.page).href}#${hash}`;
const stageData = (page) => page.$eval('#stage', (s) => ({ ...s.dataset }));

async function started(page) {
    await page.waitForSelector('#overlay:not([hidden])');
    expect(await page.$eval('#overlay-button', (b) => b.textContent) === 'Iniciar', 'no "Iniciar"');
    await page.click('#overlay-button');
    await page.waitForFunction(() => document.getElementById('stage').dataset.state === 'play');
}

async function waitFor(page, key, value, timeout = 5000) {
    await page.waitForFunction((k, v) => document.getElementById('stage').dataset[k] === String(v),
        { timeout }, key, value);
}

await check('boxes at chosen seconds match the model', async () => {
    for (const state of setup.states) {
        const page = await open(lessonUrl(`cena=${state.scene}&t=${state.time}`));
        const at = `scene ${state.scene} second ${state.time}`;
        const data = await stageData(page);
        expect(data.scene === String(state.scene) && data.time === String(state.time), at);
        for (const media of state.media) {
            const shown = await page.$eval(`#media-${media.id}`, (e) => {
                const r = e.getBoundingClientRect();
                return { hidden: e.hidden, box: [r.left, r.top, r.width, r.height] };
            });
            expect(shown.hidden === !media.visible, `${at}: media ${media.id} visibility`);
            if (!media.visible) continue;
            media.box.forEach((value, i) => expect(Math.abs(value - shown.box[i]) <= 1,
                `${at}: media ${media.id} box ${shown.box} instead of ${media.box}`));
        }
        await page.close();
    }
});

await check('project texts stay text', async () => {
    const page = await open(lessonUrl('cena=0&t=0'));
    expect(await page.title() === evil, 'title');
    expect(await page.$eval('#media-2', (e) => e.alt) === evil, 'label of the text');
    expect(await page.evaluate(() => document.scripts.length) === 2, 'a script was added');
    await page.close();
});

await check('a key changes the scene, then an automatic goto', async () => {
    const page = await open(lessonUrl('cena=0&t=0'));
    const legend = await page.$eval('#legend', (e) => (e.hidden ? '' : e.textContent));
    expect(legend.includes('1') && legend.includes('Vermelho'), `legend "${legend}"`);
    await started(page);
    await page.keyboard.press('1');
    await waitFor(page, 'scene', 1);
    await waitFor(page, 'scene', 3, 6000);
    await page.close();
});

await check('hover grows a media; a click on a linked media changes the scene', async () => {
    const page = await open(lessonUrl('cena=0&t=0'));
    await started(page);
    const [x, y] = await page.$eval('#media-1', (e) => {
        const r = e.getBoundingClientRect();
        return [r.left + r.width / 2, r.top + r.height / 2];
    });
    // "grow" while the pointer rests on it: a tenth larger, about its centre.
    await page.mouse.move(x, y);
    const grown = await page.$eval('#media-1', (e) => e.getBoundingClientRect().toJSON());
    const model = setup.states[0].media.find((m) => m.id === 1).box;
    expect(Math.abs(grown.width - 1.1 * model[2]) <= 1
        && Math.abs(grown.left + grown.width / 2 - (model[0] + model[2] / 2)) <= 1,
        `hover box ${JSON.stringify(grown)}`);
    await page.mouse.click(x, y);
    await waitFor(page, 'scene', 2);
    await page.close();
});

// Pages the player opens are recorded instead of opened, so nothing reaches the network.
async function clickAndRecordPages(hash, id) {
    const page = await open(lessonUrl(hash));
    await page.evaluate(() => {
        window.opened = [];
        window.open = (address) => { window.opened.push(address); };
    });
    await started(page);
    const [x, y] = await page.$eval(`#media-${id}`, (e) => {
        const r = e.getBoundingClientRect();
        return [r.left + r.width / 2, r.top + r.height / 2];
    });
    await page.mouse.click(x, y);
    await page.waitForSelector('#overlay:not([hidden])');
    const result = {
        opened: await page.evaluate(() => window.opened),
        button: await page.$eval('#overlay-button', (b) => b.textContent),
        state: (await stageData(page)).state,
    };
    await page.close();
    return result;
}

await check('web links open in a new page, never a javascript: address', async () => {
    const refused = await clickAndRecordPages('cena=0&t=1', 3);
    expect(refused.opened.length === 0, `opened ${refused.opened}`);
    // A link pauses the lesson, which waits for "Continuar".
    expect(refused.button === 'Continuar' && refused.state === 'pause', 'not paused');
    const followed = await clickAndRecordPages('cena=2&t=0', 7);
    expect(followed.opened.join() === 'http://www.exemplo.org/aula?a=1&b=2',
        `opened ${followed.opened}`);
});

await check('the main video follows the clock', async () => {
    // The clip lasts two seconds from second 0: it plays with the clock, then rests before
    // its end while the clock goes on.
    const page = await open(lessonUrl('cena=0&t=0'));
    await started(page);
    for (const [second, low, high] of [[1, 0.3, 2.05], [2, 1, 2.05], [4, 1.85, 1.96]]) {
        await waitFor(page, 'time', second);
        const at = await page.$eval('#media-0', (v) => v.currentTime);
        expect(at >= low && at <= high, `second ${second}: video at ${at}`);
    }
    expect(await page.$eval('#media-0', (v) => v.paused), 'video still playing after its end');
    // The four-second sound stored beside the project folder played along to its end.
    const sound = await page.$eval('#media-8', (a) => [a.tagName, a.currentTime]);
    expect(sound[0] === 'AUDIO' && sound[1] > 3.5 && sound[1] <= 4, `sound ${sound}`);
    await page.close();
});

await check('the SCORM package reports to the platform', async () => {
    const page = await open(pathToFileURL(join(here, 'lms.html')).href);
    await page.$eval('#sco', (frame, src) => { frame.src = src; },
        `${pathToFileURL(setup.scorm).href}#cena=1`);
    await page.waitForFunction(() => window.calls.length > 0);
    const frame = page.frames().find((f) => f.url().includes('index.html'));
    // Inside the platform's frame the browser may let it start by itself.
    await frame.waitForFunction(() => document.getElementById('stage').dataset.state === 'play'
        || !document.getElementById('overlay').hidden);
    if (await frame.$('#overlay:not([hidden])')) await frame.click('#overlay-button');
    // Scene 1 goes by itself to the feedback scene at its right slot, then to the final scene.
    await page.waitForFunction(() => window.API.cmi.core.lesson_status === 'completed',
        { timeout: 12000 });
    await page.$eval('#sco', (f) => f.remove());
    await page.waitForFunction(() => window.calls.some((c) => c[0] === 'LMSFinish'));
    const calls = await page.evaluate(() => window.calls);
    const names = calls.map((c) => c[0]);
    expect(names[0] === 'LMSInitialize' && names[names.length - 1] === 'LMSFinish',
        `calls ${names}`);
    const score = await page.evaluate(() => window.API.cmi.core.score.raw);
    expect(score === '100', `score ${score}`);
    await page.close();
});

// The quiz plays four times faster ("?relogio=4", a test-only switch of the player): a feedback
// slot lasts 1.25 s instead of 5.
const quiz = setup.quiz;
const quizUrl = (file) => `${pathToFileURL(file).href}?relogio=4`;
const shown = (target, id) => target.$eval(`#media-${id}`, (e) => !e.hidden);

// Clicks an answer; the feedback scene shows the picture of the outcome, then the player goes on
// to the scene given.
async function answer(target, question, right, next) {
    await waitFor(target, 'scene', question.scene);
    await target.click(`#media-${right ? question.right : question.wrong}`);
    await waitFor(target, 'scene', quiz.feedback);
    const pictures = [await shown(target, quiz.rightPicture), await shown(target, quiz.wrongPicture)];
    expect(pictures[0] === right && pictures[1] === !right,
        `${right ? 'right' : 'wrong'} answer: pictures shown ${pictures}`);
    await waitFor(target, 'scene', next, 6000);
}

await check('the quiz reports its score: the first answer to each question counts', async () => {
    const page = await open(pathToFileURL(join(here, 'lms.html')).href);
    await page.$eval('#sco', (frame, src) => { frame.src = src; }, quizUrl(quiz.scorm));
    await page.waitForFunction(() => window.calls.length > 0);
    const frame = page.frames().find((f) => f.url().includes('index.html'));
    await frame.waitForFunction(() => document.getElementById('stage').dataset.state === 'play'
        || !document.getElementById('overlay').hidden);
    if (await frame.$('#overlay:not([hidden])')) await frame.click('#overlay-button');
    const [q1, q2, q3] = quiz.questions;
    await answer(frame, q1, true, q2.scene);
    await answer(frame, q2, false, q2.scene);
    await answer(frame, q2, true, q3.scene);
    await answer(frame, q3, true, quiz.final);
    await page.waitForFunction(() => window.API.cmi.core.lesson_status === 'completed');
    // Two of three right: 100 * 2 / 3 rounded to the nearest whole number.
    const score = await page.evaluate(() => window.API.cmi.core.score.raw);
    expect(score === '67', `score ${score}`);
    await page.close();
});

await check('the SCORM package plays with no platform around', async () => {
    const page = await open(pathToFileURL(setup.scorm).href);
    await started(page);
    await page.close();
});

await check('nothing is asked of the network, no dialog, no error', async () => {
    expect(foreign.length === 0, `requests ${foreign}`);
    expect(dialogs.length === 0, `dialogs ${dialogs}`);
    expect(errors.length === 0, `errors ${errors}`);
});

await browser.close();
console.log(results.join('\n'));
const failed = results.filter((r) => r.startsWith('FAIL')).length;
console.log(`${results.length - failed} passed, ${failed} failed`);
process.exit(failed ? 1 : 0);
