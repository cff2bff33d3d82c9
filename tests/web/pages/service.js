// SPDX-License-Identifier: MIT
// The service worker of the harness's own test: serves two files from its cache, and fetches an address on request.
const kFiles = ['worker.html', 'worker.js'];
self.addEventListener('install', (event) => {
    event.waitUntil(caches.open('harness').then((cache) => cache.addAll(kFiles)));
});
self.addEventListener('activate', (event) => event.waitUntil(self.clients.claim()));
self.addEventListener('fetch', (event) => {
    event.respondWith(caches.match(event.request).then((stored) => stored ?? fetch(event.request)));
});
self.addEventListener('message', ({data}) => fetch(data).catch(() => {}));
