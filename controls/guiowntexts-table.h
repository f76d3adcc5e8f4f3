// controls/guiowntexts-table.h: the texts of windows in the languages that are known. Private to guiowntexts.cpp.
#pragma once

#include <array>
#include <string_view>

/// In the order of the columns below; English is first.
inline constexpr std::array<std::string_view, 6> kLanguages = {"en", "de", "fr", "es", "ar", "ja"};

using guiTextRow = std::array<std::string_view, kLanguages.size()>;

inline constexpr guiTextRow kTexts[] = {
    // The find bar and the context menu.
    {"Find", "Suchen", "Rechercher", "Buscar", "بحث", "検索"},
    {"Find\u2026", "Suchen\u2026", "Rechercher\u2026", "Buscar\u2026", "بحث\u2026\u200f", "検索\u2026"},
    {"Find on this page", "Auf dieser Seite suchen", "Rechercher dans la page", "Buscar en esta página",
     "بحث في هذه الصفحة", "このページを検索"},
    {"Previous", "Vorheriges", "Précédent", "Anterior", "السابق", "前へ"},
    {"Next", "Nächstes", "Suivant", "Siguiente", "التالي", "次へ"},
    {"Match case", "Groß-/Kleinschreibung", "Respecter la casse", "Distinguir mayúsculas", "مطابقة حالة الأحرف",
     "大文字と小文字を区別"},
    {"%1 of %2", "%1 von %2", "%1 sur %2", "%1 de %2", "%1 من %2", "%1 / %2"},
    {"Not found", "Nicht gefunden", "Introuvable", "No se encuentra", "لم يُعثر عليه", "見つかりません"},
    {"Close", "Schließen", "Fermer", "Cerrar", "إغلاق", "閉じる"},
    {"Copy Link Text", "Linktext kopieren", "Copier le texte du lien", "Copiar el texto del enlace", "نسخ نص الرابط",
     "リンクのテキストをコピー"},
    // The buttons and menus of dialogs and fields.
    {"OK", "OK", "OK", "Aceptar", "موافق", "OK"},
    {"Cancel", "Abbrechen", "Annuler", "Cancelar", "إلغاء", "キャンセル"},
    {"Save", "Speichern", "Enregistrer", "Guardar", "حفظ", "保存"},
    {"Open", "Öffnen", "Ouvrir", "Abrir", "فتح", "開く"},
    {"Choose", "Auswählen", "Choisir", "Elegir", "اختيار", "選択"},
    {"Yes", "Ja", "Oui", "Sí", "نعم", "はい"},
    {"No", "Nein", "Non", "No", "لا", "いいえ"},
    {"Undo", "Rückgängig", "Annuler la frappe", "Deshacer", "تراجع", "元に戻す"},
    {"Redo", "Wiederholen", "Rétablir", "Rehacer", "إعادة", "やり直す"},
    {"Cut", "Ausschneiden", "Couper", "Cortar", "قص", "切り取り"},
    {"Copy", "Kopieren", "Copier", "Copiar", "نسخ", "コピー"},
    {"Paste", "Einfügen", "Coller", "Pegar", "لصق", "貼り付け"},
    {"Delete", "Löschen", "Supprimer", "Eliminar", "حذف", "削除"},
    {"Select All", "Alles auswählen", "Tout sélectionner", "Seleccionar todo", "تحديد الكل", "すべて選択"},
    {"Show", "Anzeigen", "Afficher", "Mostrar", "إظهار", "表示"},
    {"Hide", "Verbergen", "Masquer", "Ocultar", "إخفاء", "非表示"},
    {"Choose a file", "Datei auswählen", "Choisir un fichier", "Elegir un archivo", "اختيار ملف", "ファイルを選択"},
    {"Choose a day", "Tag auswählen", "Choisir un jour", "Elegir un día", "اختيار يوم", "日付を選択"},
    {"Divider", "Trennlinie", "Séparateur", "Separador", "فاصل", "区切り"},
    // What is wrong in a field.
    {"This has to be filled in.", "Dies muss ausgefüllt werden.", "Ce champ doit être rempli.",
     "Este campo es obligatorio.", "يجب ملء هذا الحقل.", "入力してください。"},
    {"One of these has to be chosen.", "Eines davon muss gewählt werden.", "Il faut choisir une option.",
     "Hay que elegir una opción.", "يجب اختيار أحد الخيارات.", "いずれかを選択してください。"},
    {"This box has to be ticked.", "Dieses Kästchen muss angekreuzt werden.", "Cette case doit être cochée.",
     "Hay que marcar esta casilla.", "يجب تحديد هذا المربع.", "チェックを入れてください。"},
    {"This is not in the form that is asked for.", "Dies hat nicht die verlangte Form.",
     "Le format demandé n\u2019est pas respecté.", "Esto no tiene el formato pedido.", "هذا ليس بالصيغة المطلوبة.",
     "指定された形式で入力してください。"},
    {"This is no number.", "Dies ist keine Zahl.", "Ce n\u2019est pas un nombre.", "Esto no es un número.",
     "هذا ليس رقمًا.", "数値ではありません。"},
    {"This has to be at least %1.", "Dies muss mindestens %1 sein.", "Le minimum est %1.", "El mínimo es %1.",
     "الحد الأدنى هو %1.", "%1以上にしてください。"},
    {"This has to be at most %1.", "Dies darf höchstens %1 sein.", "Le maximum est %1.", "El máximo es %1.",
     "الحد الأقصى هو %1.", "%1以下にしてください。"},
    {"This is no date.", "Dies ist kein Datum.", "Ce n\u2019est pas une date.", "Esto no es una fecha.",
     "هذا ليس تاريخًا.", "日付ではありません。"},
    {"This is no time.", "Dies ist keine Uhrzeit.", "Ce n\u2019est pas une heure.", "Esto no es una hora.",
     "هذا ليس وقتًا.", "時刻ではありません。"},
    {"This must not be before %1.", "Dies darf nicht vor %1 liegen.", "Pas avant %1.", "No puede ser anterior a %1.",
     "يجب ألا يسبق %1.", "%1以降にしてください。"},
    {"This must not be after %1.", "Dies darf nicht nach %1 liegen.", "Pas après %1.", "No puede ser posterior a %1.",
     "يجب ألا يتجاوز %1.", "%1以前にしてください。"},
};
