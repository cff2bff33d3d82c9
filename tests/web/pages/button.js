// SPDX-License-Identifier: MIT
// Writes down what the user does.
window.seen = [];
for (const name of ['click', 'keydown', 'drop', 'dragover', 'change', 'visibilitychange', 'freeze', 'resume']) {
    document.addEventListener(name, (event) => {
        const files = event.dataTransfer?.files ?? event.target.files ?? [];
        if (event.dataTransfer) {
            event.preventDefault();  // else the browser would open the file
        }
        window.seen.push({
            name,
            trusted: event.isTrusted,
            pointer: event.pointerType ?? '',
            key: event.key ?? '',
            control: Boolean(event.ctrlKey),
            target: event.target.id ?? '',
            files: Array.from(files, (file) => [file.name, file.size]),
            activated: navigator.userActivation?.isActive ?? false,
            hidden: document.hidden,
        });
    });
}
