// The player of an exported lesson. It plays the scenes with the same clock as the program:
// whole seconds, the syncs of a second run in their stored order, seeking replays every second
// from 0, a goto acts only while playing and after the other syncs of its second, and a link
// fires only while its media is on display. Nothing here reaches the network.
(function () {
    'use strict';

    var lesson = JSON.parse(document.getElementById('lesson-data').textContent);
    var stage = document.getElementById('stage');
    var legend = document.getElementById('legend');
    var overlay = document.getElementById('overlay');
    var overlayButton = document.getElementById('overlay-button');

    var STAGE_WIDTH = lesson.stage[0];
    var STAGE_HEIGHT = lesson.stage[1];

    // The remote control's keys and the keyboard keys that stand for them.
    var KEYS = {
        RED: { keys: ['1'], name: 'Vermelho', color: '#d32f2f' },
        GREEN: { keys: ['2'], name: 'Verde', color: '#388e3c' },
        YELLOW: { keys: ['3'], name: 'Amarelo', color: '#fbc02d' },
        BLUE: { keys: ['4'], name: 'Azul', color: '#1976d2' },
        ENTER: { keys: ['Enter'], name: 'Enter' },
        CURSOR_LEFT: { keys: ['ArrowLeft'], name: 'Seta para esquerda', label: '←' },
        CURSOR_UP: { keys: ['ArrowUp'], name: 'Seta para cima', label: '↑' },
        CURSOR_RIGHT: { keys: ['ArrowRight'], name: 'Seta para direita', label: '→' },
        CURSOR_DOWN: { keys: ['ArrowDown'], name: 'Seta para baixo', label: '↓' }
    };

    var HOVERS = ['grow', 'shrink', 'push', 'pop', 'float', 'sink', 'backward', 'forward',
        'fade', 'border'];
    var BOUNCE_MS = 500;

    var scenesById = new Map();
    lesson.scenes.forEach(function (scene) {
        scene.actionsAt = new Map(scene.timeline);
        scenesById.set(scene.id, scene);
    });
    var finalScene = lesson.scenes.length ? lesson.scenes[lesson.scenes.length - 1] : null;

    var player = {
        scene: null,
        time: 0,
        playing: false,
        timer: 0,
        items: new Map(), // media id -> { media, element }
        feedbackEntries: [],
        // Milliseconds of a second of the lesson. "?relogio=<n>" in the page's address runs the
        // clock n times faster, for the browser tests only (five-second quiz slots); without it,
        // or with anything but a number above 1, a second lasts a second.
        second: 1000 / Math.max(1, parseFloat(new URLSearchParams(window.location.search)
            .get('relogio')) || 1)
    };

    // ------------------------------------------------------------ the stage

    function fitStage() {
        var scale = Math.min(window.innerWidth / STAGE_WIDTH, window.innerHeight / STAGE_HEIGHT);
        stage.style.width = STAGE_WIDTH + 'px';
        stage.style.height = STAGE_HEIGHT + 'px';
        stage.style.transform = 'scale(' + scale + ')';
        stage.style.left = (window.innerWidth - STAGE_WIDTH * scale) / 2 + 'px';
        stage.style.top = (window.innerHeight - STAGE_HEIGHT * scale) / 2 + 'px';
    }

    function makeElement(media) {
        var element;
        if (media.type === 'audio') {
            element = document.createElement('audio');
        } else if (media.type === 'video') {
            element = document.createElement('video');
            element.playsInline = true;
        } else if (media.src) {
            element = document.createElement('img');
            element.alt = media.label;
            element.draggable = false;
        } else {
            // A text or shape whose picture is missing: its words, in its colours.
            element = document.createElement('div');
            element.className = 'wording';
            element.textContent = media.text || '';
            if (media.color) element.style.color = media.color;
            if (media.type === 'shape' && media.fill) element.style.background = media.fill;
            if (media.size > 0) element.style.fontSize = media.size + 'px';
        }
        if (media.src) {
            if (element.tagName === 'IMG') element.src = media.src;
            else {
                element.preload = 'auto';
                element.src = media.src;
            }
        }
        element.id = 'media-' + media.id;
        element.classList.add('media', media.type);
        element.hidden = true;
        return element;
    }

    function place(item, action) {
        var element = item.element;
        if (item.media.type === 'audio') return;
        var box = action.box;
        element.style.left = box[0] * STAGE_WIDTH / 100 + 'px';
        element.style.top = box[1] * STAGE_HEIGHT / 100 + 'px';
        element.style.width = box[2] * STAGE_WIDTH / 100 + 'px';
        element.style.height = box[3] * STAGE_HEIGHT / 100 + 'px';
        element.style.zIndex = String(action.layer);
        element.style.opacity = String(1 - action.alpha / 100);
    }

    function buildScene(scene) {
        stage.textContent = '';
        player.items = new Map();
        scene.media.forEach(function (media) {
            var item = { media: media, element: makeElement(media), hoverTimer: 0 };
            player.items.set(media.id, item);
            stage.appendChild(item.element);
            if (media.type !== 'audio') watchPointer(item);
        });
        scene.links.forEach(function (link) {
            var item = player.items.get(link.target);
            if (item) item.element.classList.add('linked');
        });
        showLegend(scene);
    }

    function leaveScene() {
        player.items.forEach(function (item) {
            if (item.element.pause) item.element.pause();
            clearTimeout(item.hoverTimer);
        });
    }

    // ------------------------------------------------------------ the clock

    // The span of a media: from its start up to, not including, its stop; no stop lasts
    // beyond the total time.
    function syncTime(scene, target, kind) {
        for (var i = 0; i < scene.timeline.length; ++i) {
            var actions = scene.timeline[i][1];
            for (var j = 0; j < actions.length; ++j) {
                if (actions[j].do === kind && actions[j].target === target)
                    return scene.timeline[i][0];
            }
        }
        return -1;
    }

    function isActive(scene, target, time) {
        var start = syncTime(scene, target, 'start');
        var stop = syncTime(scene, target, 'stop');
        if (start < 0) start = 0;
        if (stop < 0) stop = scene.total + 1;
        return start <= time && time < stop;
    }

    // Runs the syncs of one second. While replaying (seeking) gotos are left out.
    function execute(time, replay) {
        var actions = player.scene.actionsAt.get(time);
        if (!actions) return;
        var jump = null;
        actions.forEach(function (action) {
            if ('goto' in action) {
                if (!replay) jump = action;
                return;
            }
            var item = player.items.get(action.target);
            if (!item) return;
            place(item, action);
            if (action.do === 'start') item.element.hidden = false;
            else if (action.do === 'stop') item.element.hidden = true;
        });
        if (jump && jump.goto !== null && player.playing) {
            pauseScene();
            // The jump waits for the event loop, as in the program.
            setTimeout(function () { enterScene(jump.goto, jump.at, true); }, 0);
        }
    }

    function tick() {
        if (player.time < player.scene.total) player.time += 1;
        player.timer = setTimeout(tick, player.second);
        execute(player.time, false);
        if (player.playing) followMedia();
        showState();
    }

    function runClock() {
        clearTimeout(player.timer);
        player.playing = true;
        overlay.hidden = true;
        player.timer = setTimeout(tick, player.second);
    }

    function playScene() {
        runClock();
        execute(player.time, false);
        if (player.playing) followMedia();
        showState();
    }

    function pauseScene() {
        clearTimeout(player.timer);
        player.playing = false;
        player.items.forEach(function (item) {
            if (item.element.pause) item.element.pause();
        });
        showState();
    }

    // Enters a scene at a second: everything hidden, every second up to it replayed, then
    // played or left paused. An unknown scene changes nothing.
    function enterScene(id, time, play) {
        var scene = scenesById.get(id);
        if (!scene) return false;
        clearTimeout(player.timer);
        if (player.scene) leaveScene();
        player.scene = scene;
        player.time = time;
        player.playing = false;
        buildScene(scene);
        for (var t = 0; t <= time; ++t) execute(t, true);
        sceneEntered(scene, time);
        if (play && time > 0) {
            // A jump into a later second goes on from there: the goto of that very second
            // belongs to whoever arrived at it by the clock (the slots of a quiz's feedback).
            runClock();
            followMedia();
            showState();
        } else if (play) {
            playScene();
        } else {
            showPaused();
        }
        return true;
    }

    // Sound and video follow the clock within a second; one that has run out rests just
    // before its end, on its last picture.
    function followMedia() {
        player.items.forEach(function (item) {
            var element = item.element;
            if (item.media.type !== 'video' && item.media.type !== 'audio') return;
            var id = item.media.id;
            if (!isActive(player.scene, id, player.time) || element.hidden && item.media.type === 'video') {
                element.pause();
                return;
            }
            var start = Math.max(0, syncTime(player.scene, id, 'start'));
            var offset = player.time - start;
            if (offset < 0) return;
            var duration = element.duration;
            // Run out, or asked for a second past its end: a player that stops there rests on
            // its last picture (playing again would start it over).
            if (isFinite(duration) && (start + duration <= player.time - 1 ||
                    offset >= duration - 0.05 || element.ended)) {
                var end = Math.max(0, duration - 0.05);
                if (Math.abs(element.currentTime - end) > 0.01) element.currentTime = end;
                element.pause();
                return;
            }
            var seconds = Math.floor(element.currentTime);
            if (Math.abs(offset - seconds) > 1) element.currentTime = offset;
            if (element.paused) {
                var started = element.play();
                if (started && started.catch) started.catch(function () {});
            }
        });
    }

    // ------------------------------------------------------------ links

    function safeAddress(text) {
        var address = String(text).trim();
        if (!/^[a-z][a-z0-9+.-]*:/i.test(address)) address = 'http://' + address;
        var url;
        try {
            url = new URL(address);
        } catch (e) {
            return null;
        }
        return ['http:', 'https:', 'mailto:', 'ftp:'].indexOf(url.protocol) >= 0 ? url.href : null;
    }

    function openAddress(text) {
        var address = safeAddress(text);
        if (address) window.open(address, '_blank', 'noopener,noreferrer');
    }

    function fireLinks(links) {
        var scene = player.scene;
        var time = player.time;
        links.forEach(function (link) {
            if (!isActive(scene, link.target, time)) return;
            pauseScene();
            if (link.url) openAddress(link.url);
            if (link.scene !== null && !enterScene(link.scene, link.at, !link.url)) showPaused();
            else if (link.scene === null) showPaused();
        });
    }

    function watchPointer(item) {
        var element = item.element;
        element.addEventListener('mousedown', function (event) {
            if (!player.playing || event.button !== 0) return;
            fireLinks(player.scene.links.filter(function (link) {
                return link.target === item.media.id;
            }));
        });
        var kind = HOVERS[item.media.hover];
        if (!kind || kind === 'fade') return;
        element.addEventListener('mouseenter', function () {
            if (!player.playing) return;
            element.classList.add('hover-' + kind);
            if (kind === 'push' || kind === 'pop') {
                clearTimeout(item.hoverTimer);
                item.hoverTimer = setTimeout(function () {
                    element.classList.remove('hover-' + kind);
                }, BOUNCE_MS);
            }
        });
        element.addEventListener('mouseleave', function () {
            element.classList.remove('hover-' + kind);
        });
    }

    function keyWord(key) {
        for (var word in KEYS) {
            if (KEYS[word].keys.indexOf(key) >= 0) return word;
        }
        return null;
    }

    document.addEventListener('keydown', function (event) {
        if (event.ctrlKey || event.altKey || event.metaKey) return;
        if (!overlay.hidden && event.key !== ' ') return;
        if (event.key === ' ') {
            event.preventDefault();
            if (player.playing) {
                pauseScene();
                showPaused();
            } else {
                start();
            }
            return;
        }
        var word = keyWord(event.key);
        if (!word || !player.playing) return;
        event.preventDefault();
        fireLinks(player.scene.links.filter(function (link) { return link.key === word; }));
    });

    function showLegend(scene) {
        var used = [];
        scene.links.forEach(function (link) {
            if (link.key && KEYS[link.key] && used.indexOf(link.key) < 0) used.push(link.key);
        });
        legend.textContent = '';
        legend.hidden = used.length === 0;
        used.forEach(function (word) {
            var key = KEYS[word];
            var row = document.createElement('div');
            if (key.color) {
                var dot = document.createElement('span');
                dot.className = 'dot';
                dot.style.background = key.color;
                row.appendChild(dot);
            }
            var cap = document.createElement('span');
            cap.className = 'key';
            cap.textContent = key.label || key.keys[0];
            row.appendChild(cap);
            row.appendChild(document.createTextNode(key.name));
            legend.appendChild(row);
        });
    }

    // ------------------------------------------------------------ state, start and pause

    function showState() {
        stage.dataset.scene = String(player.scene.id);
        stage.dataset.time = String(player.time);
        stage.dataset.state = player.playing ? 'play' : 'pause';
    }

    function showPaused() {
        showState();
        overlayButton.textContent = 'Continuar';
        overlay.hidden = false;
    }

    function start() {
        overlay.hidden = true;
        if (player.scene) playScene();
    }

    overlayButton.addEventListener('click', start);

    // Whether the browser lets the page start sound by itself: a short silence is played.
    function probeAutoplay() {
        var wav = new Uint8Array(46);
        var view = new DataView(wav.buffer);
        var text = function (at, s) {
            for (var i = 0; i < s.length; ++i) wav[at + i] = s.charCodeAt(i);
        };
        text(0, 'RIFF'); view.setUint32(4, 38, true); text(8, 'WAVEfmt ');
        view.setUint32(16, 16, true); view.setUint16(20, 1, true); view.setUint16(22, 1, true);
        view.setUint32(24, 8000, true); view.setUint32(28, 16000, true);
        view.setUint16(32, 2, true); view.setUint16(34, 16, true);
        text(36, 'data'); view.setUint32(40, 2, true);
        var url = URL.createObjectURL(new Blob([wav], { type: 'audio/wav' }));
        var probe = new Audio(url);
        var played;
        try {
            played = probe.play();
        } catch (e) {
            played = Promise.reject(e);
        }
        return Promise.resolve(played).then(function () {
            probe.pause();
            return true;
        }, function (error) {
            return !(error && error.name === 'NotAllowedError');
        });
    }

    function hasSound() {
        return lesson.scenes.some(function (scene) {
            return scene.media.some(function (media) {
                return media.type === 'video' || media.type === 'audio';
            });
        });
    }

    // "#cena=<id>&t=<second>" opens the lesson at that scene and second.
    function startPoint() {
        var point = { scene: lesson.scenes.length ? lesson.scenes[0].id : null, time: 0 };
        var query = new URLSearchParams(window.location.hash.replace(/^#/, ''));
        var scene = parseInt(query.get('cena'), 10);
        var time = parseInt(query.get('t'), 10);
        if (scenesById.has(scene)) point.scene = scene;
        if (time >= 0) point.time = time;
        return point;
    }

    // ------------------------------------------------------------ quiz and LMS

    // The score of the quiz, 0 to 100, from the seconds at which the feedback scene was entered:
    // slot i - 1 means question i was answered right, slot N + i - 1 wrong; the first answer to
    // each question counts. Rounded to the nearest whole: two of three right give 67.
    function quizScore(quiz, entries) {
        var first = new Map();
        entries.forEach(function (second) {
            var slot = Math.floor(second / quiz.slot);
            var question = slot < quiz.questions ? slot : slot - quiz.questions;
            if (slot < 2 * quiz.questions && !first.has(question))
                first.set(question, slot < quiz.questions);
        });
        var right = 0;
        first.forEach(function (isRight) { if (isRight) right += 1; });
        return Math.round(100 * right / quiz.questions);
    }

    var lms = null;

    function findLms() {
        var candidates = [];
        var win = window;
        for (var depth = 0; depth < 8 && win; ++depth) {
            candidates.push(win);
            if (win.parent === win) break;
            win = win.parent;
        }
        if (window.opener) candidates.push(window.opener);
        for (var i = 0; i < candidates.length; ++i) {
            try {
                if (candidates[i].API && candidates[i].API.LMSInitialize) return candidates[i].API;
            } catch (e) {
                // Another origin: not our LMS.
            }
        }
        return null;
    }

    function startLms() {
        if (!lesson.scorm) return;
        lms = findLms();
        if (!lms) return;
        lms.LMSInitialize('');
        var status = lms.LMSGetValue('cmi.core.lesson_status');
        if (!status || status === 'not attempted') lms.LMSSetValue('cmi.core.lesson_status', 'incomplete');
        lms.LMSCommit('');
        var finished = false;
        var finish = function () {
            if (finished) return;
            finished = true;
            lms.LMSFinish('');
        };
        window.addEventListener('pagehide', finish);
        window.addEventListener('beforeunload', finish);
    }

    function sceneEntered(scene, time) {
        if (lesson.quiz && scene.id === lesson.quiz.scene) player.feedbackEntries.push(time);
        var quizEnds = lesson.quiz && scene.id === lesson.quiz.final;
        if (!lms || !quizEnds && scene !== finalScene) return;
        // The score goes when the quiz ends, whatever the lesson shows after it.
        if (lesson.quiz) {
            lms.LMSSetValue('cmi.core.score.min', '0');
            lms.LMSSetValue('cmi.core.score.max', '100');
            lms.LMSSetValue('cmi.core.score.raw',
                String(quizScore(lesson.quiz, player.feedbackEntries)));
        }
        if (scene === finalScene) lms.LMSSetValue('cmi.core.lesson_status', 'completed');
        lms.LMSCommit('');
    }

    // ------------------------------------------------------------ boot

    document.title = lesson.title;
    fitStage();
    window.addEventListener('resize', fitStage);
    startLms();
    var point = startPoint();
    if (point.scene === null) return;
    enterScene(point.scene, point.time, false);
    overlayButton.textContent = 'Iniciar';
    if (!hasSound()) {
        start();
        return;
    }
    var decided = false;
    var decide = function (allowed) {
        if (decided) return;
        decided = true;
        if (allowed) start();
        else {
            overlayButton.textContent = 'Iniciar';
            overlay.hidden = false;
        }
    };
    probeAutoplay().then(decide);
    // A browser that neither plays nor refuses gets the button.
    setTimeout(function () { decide(false); }, 1500);
})();
