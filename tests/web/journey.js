// Plays an exported lesson in headless Chromium along the steps a journey gives (written by
// tst_journeys): wait for a scene, click a media, press a key. The clock runs four times faster.
// Each failure names its step; nothing may leave the disk, no dialog, no page error.
import puppeteer from 'puppeteer-core';
import { readFileSync } from 'node:fs';
import { pathToFileURL } from 'node:url';

const setup = JSON.parse(readFileSync(process.argv[2], 'utf8'));
const [width, height] = setup.stage;

const browser = await puppeteer.launch({
    executablePath: process.env.CHROMIUM || '/usr/bin/chromium',
    headless: true,
    // --no-sandbox: CI runs as root. Sound waits for a gesture, so the start button may show.
    args: ['--no-sandbox', '--allow-file-access-from-files',
        '--autoplay-policy=document-user-activation-required'],
    defaultViewport: { width, height },
});

const problems = [];
const page = await browser.newPage();
await page.setRequestInterception(true);
page.on('request', (request) => {
    if (/^(file|blob|data):/.test(request.url())) request.continue();
    else {
        problems.push(`request ${request.url()}`);
        request.abort();
    }
});
page.on('dialog', (dialog) => {
    problems.push(`dialog ${dialog.message()}`);
    dialog.dismiss();
});
page.on('pageerror', (error) => problems.push(`error ${error.message}`));

const scene = () => page.$eval('#stage', (s) => s.dataset.scene);
let failure = '';
try {
    await page.goto(`${pathToFileURL(setup.page).href}?relogio=4`);
    await page.waitForFunction(() => document.getElementById('stage').dataset.state === 'play'
        || !document.getElementById('overlay').hidden);
    if (await page.$('#overlay:not([hidden])')) await page.click('#overlay-button');
    for (const [index, step] of setup.steps.entries()) {
        const name = `step ${index + 1} (${step.name})`;
        try {
            if (step.do === 'wait') {
                await page.waitForFunction((v) => document.getElementById('stage').dataset.scene
                    === String(v), { timeout: step.timeout || 8000 }, step.scene);
            } else if (step.do === 'click') {
                await page.waitForSelector(`#media-${step.media}:not([hidden])`, { timeout: 5000 });
                await page.click(`#media-${step.media}`);
            } else if (step.do === 'key') {
                await page.keyboard.press(step.key);
            }
        } catch (error) {
            throw new Error(`${name}: the page shows scene ${await scene()}: ${error.message}`);
        }
    }
} catch (error) {
    failure = error.message;
}
await browser.close();
if (problems.length) failure += ` ${problems.join('; ')}`;
console.log(failure || 'ok');
process.exit(failure ? 1 : 0);
