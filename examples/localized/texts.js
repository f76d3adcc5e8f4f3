'use strict';
// What the program says, by language. `nights` has a text for each kind of number that the language tells apart (Intl.PluralRules).

const english = {
    language: 'English', locale: 'en-GB', dir: 'ltr', title: 'A stay', menu: '&Language', name: '&Name', arrival: '&Arrival', nights: 'N&ights', breakfast: '&Breakfast',
    count: { one: '# night', other: '# nights' }, from: (name, nights, from, to) => `${name || 'You'} will stay ${nights}, from ${from} to ${to}.`, price: 'Price',
};
const german = {
    language: 'Deutsch', locale: 'de-DE', dir: 'ltr', title: 'Ein Aufenthalt', menu: '&Sprache', name: '&Name', arrival: '&Anreise', nights: 'Nä&chte', breakfast: '&Frühstück',
    count: { one: '# Nacht', other: '# Nächte' }, from: (name, nights, from, to) => `${name || 'Sie'}: ${nights}, von ${from} bis ${to}.`, price: 'Preis',
};
const arabic = {
    language: 'العربية', locale: 'ar-EG', dir: 'rtl', title: 'إقامة', menu: 'اللغة (&L)', name: 'الاسم (&N)', arrival: 'الوصول (&A)', nights: 'الليالي (&I)', breakfast: 'الإفطار (&B)',
    count: { zero: 'بلا ليال', one: 'ليلة واحدة', two: 'ليلتان', few: '# ليال', many: '# ليلة', other: '# ليلة' },
    from: (name, nights, from, to) => `${name || 'الإقامة'}: ${nights}، من ${from} إلى ${to}.`, price: 'السعر',
};

module.exports = { texts: { en: english, de: german, ar: arabic } };
