// Stores the page on this device: all files of one version, or none. A new version waits until the
// user accepts it.
/* global VERSION, FILES: the packer writes them above */

const FOLDER = new URL('.', location.href).pathname;
const OWN = `murmelo ${FOLDER} `; // copies of the page in other folders have caches of their own
const CACHE = OWN + VERSION;
const SHARED = OWN + 'shared';

/** Fetches a file without the browser's own cache, and checks that it belongs to this version. */
async function fetchChecked([path, hash]) {
    const answer = await fetch(path, { cache: 'no-cache' });
    const bytes = await answer.arrayBuffer();
    const digest = new Uint8Array(await crypto.subtle.digest('SHA-256', bytes));
    const hex = [...digest].map((byte) => byte.toString(16).padStart(2, '0')).join('');
    if (!answer.ok || hex !== hash) {
        throw new Error(`${path} is not of this version`);
    }
    // A new Response, because browsers refuse one that a host has redirected.
    return /** @type {[string, Response]} */ ([path, new Response(bytes, { headers: answer.headers })]);
}

async function install() {
    const files = await Promise.all(Object.entries(FILES).map(fetchChecked));
    const cache = await caches.open(CACHE);
    await Promise.all(files.map(([path, answer]) => cache.put(path, answer)));
}

async function removeOlder() {
    const names = await caches.keys();
    await Promise.all(names.filter((name) => name.startsWith(OWN) && name !== CACHE && name !== SHARED).map((name) => caches.delete(name)));
}

/** Puts a shared sound into the cache for the page, and opens the page, which tells the user if there is none. */
async function receive(request) {
    try {
        const file = (await request.formData()).get('sound');
        const cache = await caches.open(SHARED);
        await (file instanceof File && cache.put('shared', new Response(file)));
    } finally {
        return Response.redirect('./?shared', 303);
    }
}

async function answer(request, path) {
    const cache = await caches.open(CACHE);
    return (await cache.match(path)) ?? fetch(request);
}

self.addEventListener('install', (event) => event.waitUntil(install()));
self.addEventListener('activate', (event) => event.waitUntil(removeOlder()));
self.addEventListener('message', (event) => {
    if (event.data === 'activate') {
        self.skipWaiting();
    }
});
// Responds only to requests for the page's files. A new version waits until all responses have ended, and a response to another request might never end.
self.addEventListener('fetch', (event) => {
    const { request } = event;
    const { origin, pathname } = new URL(request.url);
    const path = pathname.slice(FOLDER.length) || 'index.html';
    if (origin !== location.origin || !pathname.startsWith(FOLDER)) {
        return;
    }
    if (request.method === 'POST') {
        event.respondWith(receive(request));
    } else if (request.method === 'GET' && Object.hasOwn(FILES, path)) {
        event.respondWith(answer(request, path));
    }
});
