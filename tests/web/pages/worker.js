// SPDX-License-Identifier: MIT
// Works offline once its service worker is there.
navigator.serviceWorker.register('service.js');
