#include "HostWords.h"

#include <algorithm>

namespace {

// As in the program's own texts, Spanish and Italian say "tu", German and French "Sie" and "vous".
// clang-format off
constexpr HostWords::Row kRows[] = {
    // Buttons
    {"save", "Save", "Sichern", "Guardar", "Sauver", "Salva"},
    {"open", "Open", "Öffnen", "Abrir", "Ouvrir", "Apri"},
    {"sounds", "Sounds", "Klänge", "Sonidos", "Sons", "Suoni"},
    {"help", "Help", "Hilfe", "Ayuda", "Aide", "Guida"},
    {"play", "Play", "Abspielen", "Reproducir", "Lire", "Riproduci"},
    {"stop", "Stop", "Stopp", "Parar", "Arrêter", "Ferma"},
    {"share", "Share", "Teilen", "Compartir", "Partager", "Condividi"},
    {"download", "Download", "Herunterladen", "Descargar", "Télécharger", "Scarica"},
    {"delete", "Delete", "Löschen", "Eliminar", "Supprimer", "Elimina"},
    {"undo", "Undo", "Rückgängig", "Deshacer", "Annuler", "Annulla"},
    {"close", "Close", "Schließen", "Cerrar", "Fermer", "Chiudi"},
    {"bringBack", "Bring back", "Zurückholen", "Recuperar", "Récupérer", "Recupera"},
    {"forget", "Forget", "Vergessen", "Olvidar", "Oublier", "Dimentica"},
    {"update", "Update", "Aktualisieren", "Actualizar", "Mettre à jour", "Aggiorna"},
    {"takeOver", "Use it here", "Hier verwenden", "Usar aquí", "Utiliser ici", "Usa qui"},
    {"startAgain", "Start again", "Neu starten", "Volver a empezar", "Redémarrer", "Riavvia"},
    {"previousEffect", "Effect before", "Voriger Effekt", "Efecto anterior", "Effet précédent", "Effetto precedente"},
    {"nextEffect", "Next effect", "Nächster Effekt", "Efecto siguiente", "Effet suivant", "Effetto successivo"},
    // The microphone
    {"allowMicrophone",
     "Please allow the microphone.",
     "Bitte erlauben Sie das Mikrofon.",
     "Permite el micrófono, por favor.",
     "Veuillez autoriser le microphone.",
     "Consenti l’uso del microfono."},
    {"microphoneRefused",
     "The microphone is not allowed. Allow it in the browser’s settings for this page.",
     "Das Mikrofon ist nicht erlaubt. Erlauben Sie es in den Einstellungen des Browsers für diese Seite.",
     "El micrófono no está permitido. Permítelo en los ajustes del navegador para esta página.",
     "Le microphone n’est pas autorisé. Autorisez-le dans les réglages du navigateur pour cette page.",
     "Il microfono non è consentito. Consentilo nelle impostazioni del browser per questa pagina."},
    {"microphoneMissing",
     "There is no microphone. Connect one, or open a sound file.",
     "Es gibt kein Mikrofon. Schließen Sie eines an, oder öffnen Sie eine Klangdatei.",
     "No hay micrófono. Conecta uno o abre un archivo de sonido.",
     "Il n’y a pas de microphone. Branchez-en un ou ouvrez un fichier son.",
     "Non c’è alcun microfono. Collegane uno o apri un file audio."},
    {"microphoneBusy",
     "Another program is using the microphone. Close it and try again.",
     "Ein anderes Programm benutzt das Mikrofon. Schließen Sie es und versuchen Sie es noch einmal.",
     "Otro programa está usando el micrófono. Ciérralo e inténtalo de nuevo.",
     "Un autre programme utilise le microphone. Fermez-le et réessayez.",
     "Un altro programma sta usando il microfono. Chiudilo e riprova."},
    {"microphoneGone",
     "The microphone is gone. What it heard until then is kept.",
     "Das Mikrofon ist weg. Was es bis dahin gehört hat, bleibt erhalten.",
     "El micrófono ha desaparecido. Lo que oyó hasta entonces se conserva.",
     "Le microphone a disparu. Ce qu’il a entendu jusque-là est conservé.",
     "Il microfono non c’è più. Ciò che ha sentito fino ad allora resta."},
    {"microphoneSilent",
     "No sound comes from the microphone. Is it switched off?",
     "Vom Mikrofon kommt kein Ton. Ist es ausgeschaltet?",
     "No llega sonido del micrófono. ¿Está apagado?",
     "Aucun son ne vient du microphone. Est-il coupé ?",
     "Dal microfono non arriva alcun suono. È spento?"},
    {"microphoneInsecure",
     "Browsers allow the microphone only on pages whose address begins with https.",
     "Browser erlauben das Mikrofon nur auf Seiten, deren Adresse mit https beginnt.",
     "Los navegadores solo permiten el micrófono en páginas cuya dirección empieza por https.",
     "Les navigateurs n’autorisent le microphone que sur les pages dont l’adresse commence par https.",
     "I browser consentono il microfono solo nelle pagine il cui indirizzo inizia con https."},
    // Messages
    {"saved", "Saved", "Gesichert", "Guardado", "Enregistré", "Salvato"},
    {"nothingToSave",
     "There is nothing to save yet. Record something first.",
     "Es gibt noch nichts zu sichern. Nehmen Sie zuerst etwas auf.",
     "Todavía no hay nada que guardar. Graba algo primero.",
     "Il n’y a encore rien à sauver. Enregistrez d’abord quelque chose.",
     "Non c’è ancora nulla da salvare. Registra prima qualcosa."},
    {"notNow",
     "This is possible in the menu and at the choice of the effect.",
     "Das geht im Menü und bei der Wahl des Effekts.",
     "Esto es posible en el menú y al elegir el efecto.",
     "C’est possible dans le menu et au choix de l’effet.",
     "Questo è possibile nel menu e alla scelta dell’effetto."},
    {"noSoundFile",
     "This file is no sound that the browser understands.",
     "Diese Datei ist kein Klang, den der Browser versteht.",
     "Este archivo no es un sonido que el navegador entienda.",
     "Ce fichier n’est pas un son que le navigateur comprend.",
     "Questo file non è un suono che il browser capisca."},
    {"fileTooLarge",
     "This file is too large.",
     "Diese Datei ist zu groß.",
     "Este archivo es demasiado grande.",
     "Ce fichier est trop gros.",
     "Questo file è troppo grande."},
    {"tooShort",
     "The recording was too short to be kept.",
     "Die Aufnahme war zu kurz, um erhalten zu bleiben.",
     "La grabación era demasiado corta para conservarla.",
     "L’enregistrement était trop court pour être conservé.",
     "La registrazione era troppo breve per essere conservata."},
    {"deleted", "Deleted", "Gelöscht", "Eliminado", "Supprimé", "Eliminato"},
    {"storeFull",
     "The browser has no room left. Share or download the sound now.",
     "Der Browser hat keinen Platz mehr. Teilen Sie den Klang jetzt, oder laden Sie ihn herunter.",
     "El navegador ya no tiene espacio. Comparte o descarga el sonido ahora.",
     "Le navigateur n’a plus de place. Partagez ou téléchargez le son maintenant.",
     "Il browser non ha più spazio. Condividi o scarica il suono ora."},
    {"storeMissing",
     "This browser stores nothing for this page. Sounds are gone when it is closed.",
     "Dieser Browser speichert nichts für diese Seite. Die Klänge sind weg, wenn sie geschlossen wird.",
     "Este navegador no guarda nada para esta página. Los sonidos se pierden al cerrarla.",
     "Ce navigateur ne garde rien pour cette page. Les sons disparaissent à sa fermeture.",
     "Questo browser non conserva nulla per questa pagina. Chiudendola, i suoni vanno persi."},
    {"cannotPlay",
     "The browser cannot play the sound.",
     "Der Browser kann den Klang nicht abspielen.",
     "El navegador no puede reproducir el sonido.",
     "Le navigateur ne peut pas lire le son.",
     "Il browser non può riprodurre il suono."},
    {"otherTab",
     "Murmelo is open in another tab.",
     "Murmelo ist in einem anderen Tab geöffnet.",
     "Murmelo está abierto en otra pestaña.",
     "Murmelo est ouvert dans un autre onglet.",
     "Murmelo è aperto in un’altra scheda."},
    {"newVersion",
     "A new version is ready.",
     "Eine neue Version ist bereit.",
     "Hay una versión nueva.",
     "Une nouvelle version est prête.",
     "È pronta una nuova versione."},
    {"ended",
     "Murmelo has ended. Your sounds are kept.",
     "Murmelo ist beendet. Ihre Klänge bleiben erhalten.",
     "Murmelo ha terminado. Tus sonidos se conservan.",
     "Murmelo est terminé. Vos sons sont conservés.",
     "Murmelo è terminato. I tuoi suoni restano."},
    {"broken",
     "Something went wrong. Your saved sounds are kept.",
     "Etwas ist schiefgegangen. Ihre gesicherten Klänge bleiben erhalten.",
     "Algo ha salido mal. Tus sonidos guardados se conservan.",
     "Quelque chose a mal tourné. Vos sons enregistrés sont conservés.",
     "Qualcosa è andato storto. I tuoi suoni salvati restano."},
    // The list of sounds
    {"lastTake", "Last recording", "Letzte Aufnahme", "Última grabación", "Dernier enregistrement", "Ultima registrazione"},
    {"noSounds",
     "No sounds saved yet.",
     "Noch keine Klänge gesichert.",
     "Aún no hay sonidos guardados.",
     "Aucun son enregistré.",
     "Ancora nessun suono salvato."},
    {"seconds", "s", "s", "s", "s", "s"},
    // Help
    {"helpKeys",
     "Keys: arrows and Enter move and choose, F1 and Esc are the outer keys, + and − the volume, S saves, O opens a sound file.",
     "Tasten: Pfeile und Eingabe bewegen und wählen, F1 und Esc sind die äußeren Tasten, + und − die Lautstärke, S sichert, O öffnet eine Klangdatei.",
     "Teclas: las flechas e Intro mueven y eligen, F1 y Esc son las teclas exteriores, + y − el volumen, S guarda, O abre un archivo de sonido.",
     "Touches : flèches et Entrée déplacent et choisissent, F1 et Échap sont les touches extérieures, + et − le volume, S sauve, O ouvre un fichier son.",
     "Tasti: frecce e Invio muovono e scelgono, F1 ed Esc sono i tasti esterni, + e − il volume, S salva, O apre un file audio."},
    {"helpPlace",
     "Your sounds lie in this browser, on this device. Download or share what you want to keep for ever.",
     "Ihre Klänge liegen in diesem Browser, auf diesem Gerät. Was für immer bleiben soll, laden Sie herunter oder teilen es.",
     "Tus sonidos están en este navegador, en este dispositivo. Descarga o comparte lo que quieras conservar para siempre.",
     "Vos sons sont dans ce navigateur, sur cet appareil. Téléchargez ou partagez ce que vous voulez garder pour toujours.",
     "I tuoi suoni sono in questo browser, su questo dispositivo. Scarica o condividi ciò che vuoi conservare per sempre."},
    {"helpPrivate",
     "Nothing leaves this device unless you share it.",
     "Nichts verlässt dieses Gerät, wenn Sie es nicht teilen.",
     "Nada sale de este dispositivo si no lo compartes.",
     "Rien ne quitte cet appareil si vous ne le partagez pas.",
     "Nulla lascia questo dispositivo se non lo condividi."},
    {"licences", "Licences", "Lizenzen", "Licencias", "Licences", "Licenze"},
};

// clang-format on

size_t indexOf(const std::string& language) {
    const auto* found =
        std::find_if(std::begin(Languages::kAll), std::end(Languages::kAll),
                     [&language](const Language& row) { return language == row.code; });
    return found != std::end(Languages::kAll)
               ? static_cast<size_t>(found - std::begin(Languages::kAll))
               : 0;
}

}  // namespace

const std::vector<HostWords::Row>& HostWords::rows() {
    static const std::vector<Row> kAll(std::begin(kRows), std::end(kRows));
    return kAll;
}

const char* HostWords::text(const Row& row, const std::string& language) {
    return row.texts[indexOf(language)];
}

const char* HostWords::text(const std::string& name, const std::string& language) {
    for (const Row& row : kRows) {
        if (name == row.name) {
            return text(row, language);
        }
    }
    return "";
}
