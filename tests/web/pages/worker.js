// SPDX-License-Identifier: MIT
// A page that works offline once its service worker is installed.
navigator.serviceWorker.register('service.js');
