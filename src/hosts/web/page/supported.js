/**
 * Tells who has too old a browser, in the reader's language. It comes before the page's modules, which such a browser
 * may not even be able to read: this is ECMAScript 5.
 */
(function () {
    "use strict";

    var texts = {
        en: [
            "This browser is too old",
            "Velmorath runs in every current browser. Update this one, or use another.",
        ],
        it: [
            "Questo browser è troppo vecchio",
            "Velmorath funziona in tutti i browser attuali. Aggiorna questo o usane un altro.",
        ],
        fr: [
            "Ce navigateur est trop ancien",
            "Velmorath fonctionne dans tous les navigateurs actuels. Mettez celui-ci à jour ou utilisez-en un autre.",
        ],
        es: [
            "Este navegador es demasiado antiguo",
            "Velmorath funciona en todos los navegadores actuales. Actualiza este o usa otro.",
        ],
        pt: [
            "Este navegador é muito antigo",
            "O Velmorath funciona em todos os navegadores atuais. Atualize este ou use outro.",
        ],
        de: [
            "Dieser Browser ist zu alt",
            "Velmorath läuft in jedem aktuellen Browser. Aktualisieren Sie diesen, oder verwenden Sie einen anderen.",
        ],
        ja: [
            "このブラウザは古すぎます",
            "Velmorathは最新のブラウザならどれでも動作します。このブラウザを更新するか、別のブラウザをお使いください。",
        ],
    };

    // What came last of all that the page needs: README.md says with which versions.
    function isSupported() {
        return "WebAssembly" in window && "indexedDB" in window && "Intl" in window && "Segmenter" in Intl
            && "roundRect" in CanvasRenderingContext2D.prototype && "inert" in HTMLElement.prototype
            && "AbortSignal" in window && "timeout" in AbortSignal;
    }

    function language() {
        var tags = navigator.languages || [navigator.language];
        for (var place = 0; place < tags.length; place += 1) {
            var tag = tags[place].split("-")[0].toLowerCase();
            if (Object.prototype.hasOwnProperty.call(texts, tag)) {
                return /** @type {keyof typeof texts} */ (tag);
            }
        }
        return "en";
    }

    /** @param {HTMLElement} parent @param {string} name @param {string} id @param {string} text */
    function add(parent, name, id, text) {
        var element = document.createElement(name);
        element.id = id;
        element.textContent = text;
        parent.appendChild(element);
    }

    if (!isSupported()) {
        var notice = /** @type {HTMLElement} */ (document.getElementById("notice"));
        var box = document.createElement("div");
        var words = texts[language()];
        document.documentElement.lang = language();
        add(box, "h1", "notice-title", words[0]);
        add(box, "p", "notice-text", words[1]);
        notice.appendChild(box);
        notice.hidden = false;
        var waiting = /** @type {HTMLElement} */ (document.getElementById("waiting"));
        waiting.hidden = true;
    }
}());
