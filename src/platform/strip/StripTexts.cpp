#include "StripTexts.h"

#include <algorithm>
#include <cstddef>

namespace {

/// A missing translation does not compile.
struct Row {
    template <typename... Text>

    requires(sizeof...(Text) == Languages::kCount) constexpr explicit Row(StripText id,
                                                                          Text... texts)
        : id(id)
        , texts{texts...} {}

    StripText id;
    std::array<const char*, Languages::kCount> texts;
};

using T = StripText;

// As in the program's own texts, Spanish and Italian say "tu", German and French "Sie" and "vous".
// clang-format off
constexpr Row kRows[] = {
    Row{T::kMicro, "Mic", "Mikro", "Micro", "Micro", "Micro"},
    Row{T::kSaveHint, "Save the sound (S)", "Klang sichern (S)", "Guardar el sonido (S)", "Sauver le son (S)", "Salva il suono (S)"},
    Row{T::kOpenHint, "Open a sound file (O)", "Tondatei öffnen (O)", "Abrir un archivo de sonido (O)", "Ouvrir un fichier son (O)", "Apri un file audio (O)"},
    Row{T::kMicroHint, "Choose the microphone (M)", "Mikrofon wählen (M)", "Elegir el micrófono (M)", "Choisir le microphone (M)", "Scegli il microfono (M)"},
    Row{T::kSoundsHint, "Show the saved sounds", "Gesicherte Klänge zeigen", "Mostrar los sonidos guardados", "Montrer les sons sauvés", "Mostra i suoni salvati"},
    Row{T::kHelpHint, "Keys, and where sounds lie (?)", "Tasten, und wo Klänge liegen (?)", "Teclas y lugar de los sonidos (?)", "Touches, et où sont les sons (?)", "Tasti, e dove sono i suoni (?)"},
    Row{T::kShow, "Show", "Zeigen", "Mostrar", "Montrer", "Mostra"},
    Row{T::kChoose, "Choose", "Wählen", "Elegir", "Choisir", "Scegli"},
    Row{T::kNoSoundFrom, "No sound comes from “%1”", "Kein Ton kommt von „%1“", "No llega sonido de «%1»", "Aucun son ne vient de «\u00A0%1\u00A0»", "Non arriva alcun suono da «%1»"},
    Row{T::kHeardNothingFrom, "I heard nothing from “%1”", "Ich habe nichts von „%1“ gehört", "No he oído nada de «%1»", "Je n’ai rien entendu de «\u00A0%1\u00A0»", "Non ho sentito nulla da «%1»"},
    Row{T::kHeardNothing, "I heard nothing. Is the microphone switched off?", "Ich habe nichts gehört. Ist das Mikrofon ausgeschaltet?", "No he oído nada. ¿Está apagado el micrófono?", "Je n’ai rien entendu. Le microphone est-il coupé\u00A0?", "Non ho sentito nulla. Il microfono è spento?"},
    Row{T::kSystemsChoice, "The system’s choice", "Wahl des Systems", "La elección del sistema", "Le choix du système", "La scelta del sistema"},
    Row{T::kMore, "More", "Mehr", "Más", "Suite", "Altri"},
    Row{T::kChooseMicrophone, "Which microphone?", "Welches Mikrofon?", "¿Qué micrófono?", "Quel microphone\u00A0?", "Quale microfono?"},
    Row{T::kMicrophoneUsed, "Recording from “%1”", "Aufgenommen wird mit „%1“", "Se graba con «%1»", "Enregistrement avec «\u00A0%1\u00A0»", "Si registra con «%1»"},
    Row{T::kMicrophoneMissing, "“%1” is not there. The system’s choice is used", "„%1“ ist nicht da. Verwendet wird die Wahl des Systems", "«%1» no está. Se usa la elección del sistema", "«\u00A0%1\u00A0» n’est pas là. Le choix du système est utilisé", "«%1» non c’è. Si usa la scelta del sistema"},
    Row{T::kDeviceLost, "“%1” is gone. What it heard until then is kept", "„%1“ ist weg. Was bis dahin zu hören war, bleibt erhalten", "«%1» ha desaparecido. Lo oído hasta entonces se conserva", "«\u00A0%1\u00A0» a disparu. Ce qu’il a entendu jusque-là est conservé", "«%1» non c’è più. Ciò che ha sentito fino ad allora resta"},
    Row{T::kDeviceFound, "“%1” is back", "„%1“ ist wieder da", "«%1» ha vuelto", "«\u00A0%1\u00A0» est de retour", "«%1» è tornato"},
    Row{T::kSaved, "Saved: %1", "Gesichert: %1", "Guardado: %1", "Sauvé\u00A0: %1", "Salvato: %1"},
    Row{T::kPicture, "Picture: %1", "Bild: %1", "Imagen: %1", "Image\u00A0: %1", "Immagine: %1"},
    Row{T::kFirstSeconds, "First 20 seconds of %1", "Die ersten 20 Sekunden von %1", "Los primeros 20 segundos de %1", "Les 20 premières secondes de %1", "I primi 20 secondi di %1"},
    Row{T::kNoSound, "%1 is no sound: %2", "%1 ist keine Tondatei: %2", "%1 no es un sonido: %2", "%1 n’est pas un son\u00A0: %2", "%1 non è un suono: %2"},
    Row{T::kDiskFull, "Disk full: %1 of %2 seconds kept", "Speicher voll: %1 von %2 Sekunden erhalten", "Disco lleno: se conservan %1 de %2 segundos", "Disque plein\u00A0: %1 secondes sur %2 conservées", "Disco pieno: conservati %1 secondi su %2"},
    Row{T::kDropHere, "Drop a sound file here", "Legen Sie hier eine Tondatei ab", "Suelta aquí un archivo de sonido", "Déposez ici un fichier son", "Lascia qui un file audio"},
    Row{T::kCannotShow, "Nothing here can show %1", "Nichts hier kann %1 zeigen", "Nada aquí puede mostrar %1", "Rien ici ne peut montrer %1", "Qui nulla può mostrare %1"},
    Row{T::kHelpKeys, "R records and stops, P plays and stops, 1 to 8 choose the effect, arrows and Enter do all this too.", "R nimmt auf und hält an, P spielt und hält an, 1 bis 8 wählen den Effekt, Pfeile und Eingabe können das auch.", "R graba y para, P reproduce y para, del 1 al 8 se elige el efecto; las flechas e Intro hacen lo mismo.", "R enregistre et arrête, P lit et arrête, 1 à 8 choisissent l’effet\u00A0; flèches et Entrée font de même.", "R registra e ferma, P riproduce e ferma, da 1 a 8 si sceglie l’effetto; anche frecce e Invio fanno tutto ciò."},
    Row{T::kHelpMoreKeys, "S saves, O opens a sound file, M chooses the microphone, F12 takes a picture, F11 fills the screen, Esc goes back, Ctrl+Q ends.", "S sichert, O öffnet eine Tondatei, M wählt das Mikrofon, F12 macht ein Bild, F11 füllt den Bildschirm, Esc geht zurück, Strg+Q beendet.", "S guarda, O abre un archivo de sonido, M elige el micrófono, F12 hace una imagen, F11 llena la pantalla, Esc vuelve, Ctrl+Q termina.", "S sauve, O ouvre un fichier son, M choisit le microphone, F12 fait une image, F11 remplit l’écran, Échap revient, Ctrl+Q termine.", "S salva, O apre un file audio, M sceglie il microfono, F12 fa un’immagine, F11 riempie lo schermo, Esc torna indietro, Ctrl+Q termina."},
    Row{T::kHelpPlace, "Your sounds lie in %1", "Ihre Klänge liegen in %1", "Tus sonidos están en %1", "Vos sons sont dans %1", "I tuoi suoni sono in %1"},
    Row{T::kHelpPrivate, "Nothing leaves this device.", "Nichts verlässt dieses Gerät.", "Nada sale de este dispositivo.", "Rien ne quitte cet appareil.", "Nulla lascia questo dispositivo."},
};

// clang-format on

constexpr bool isInOrder() {
    for (size_t i = 0; i < std::size(kRows); i++) {
        if (static_cast<size_t>(kRows[i].id) != i) {
            return false;
        }
    }
    return true;
}

static_assert(std::size(kRows) == static_cast<size_t>(StripText::kCount), "a text has no row");
static_assert(isInOrder(), "the rows stand in the order of StripText");

}  // namespace

const char* StripTexts::text(StripText id, const std::string& language) {
    const auto* found =
        std::find_if(std::begin(Languages::kAll), std::end(Languages::kAll),
                     [&language](const Language& row) { return language == row.code; });
    const auto at = found != std::end(Languages::kAll)
                        ? static_cast<size_t>(found - std::begin(Languages::kAll))
                        : 0;
    return kRows[static_cast<size_t>(id)].texts[at];
}

std::string StripTexts::sentence(StripText id,
                                 const std::string& language,
                                 std::initializer_list<std::string> parts) {
    const std::string pattern = text(id, language);
    std::string sentence;
    for (size_t i = 0; i < pattern.size(); i++) {
        const size_t part = pattern[i] == '%' && i + 1 < pattern.size()
                                ? static_cast<size_t>(pattern[i + 1] - '1')
                                : parts.size();
        if (part < parts.size()) {
            sentence += *(parts.begin() + part);
            i++;
        } else {
            sentence += pattern[i];
        }
    }
    return sentence;
}
