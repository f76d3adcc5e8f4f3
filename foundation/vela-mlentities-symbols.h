// foundation/vela-mlentities-symbols.h: the character references of HTML 4 beyond Latin-1 (HTMLsymbol and HTMLspecial).
#pragma once

#include <string_view>

struct mlReference
{
    std::string_view name;
    unsigned short code;
};

/// By name, in the order of char.
inline constexpr mlReference kSymbolReferences[] = {
    {"Alpha", 913},  {"Beta", 914},     {"Chi", 935},     {"Dagger", 8225}, {"Delta", 916},   {"Epsilon", 917},
    {"Eta", 919},    {"Gamma", 915},    {"Iota", 921},    {"Kappa", 922},   {"Lambda", 923},  {"Mu", 924},
    {"Nu", 925},     {"OElig", 338},    {"Omega", 937},   {"Omicron", 927}, {"Phi", 934},     {"Pi", 928},
    {"Prime", 8243}, {"Psi", 936},      {"Rho", 929},     {"Scaron", 352},  {"Sigma", 931},   {"Tau", 932},
    {"Theta", 920},  {"Upsilon", 933},  {"Xi", 926},      {"Yuml", 376},    {"Zeta", 918},    {"alefsym", 8501},
    {"alpha", 945},  {"and", 8743},     {"ang", 8736},    {"asymp", 8776},  {"bdquo", 8222},  {"beta", 946},
    {"bull", 8226},  {"cap", 8745},     {"chi", 967},     {"circ", 710},    {"clubs", 9827},  {"cong", 8773},
    {"crarr", 8629}, {"cup", 8746},     {"dArr", 8659},   {"dagger", 8224}, {"darr", 8595},   {"delta", 948},
    {"diams", 9830}, {"empty", 8709},   {"emsp", 8195},   {"ensp", 8194},   {"epsilon", 949}, {"equiv", 8801},
    {"eta", 951},    {"euro", 8364},    {"exist", 8707},  {"fnof", 402},    {"forall", 8704}, {"frasl", 8260},
    {"gamma", 947},  {"ge", 8805},      {"hArr", 8660},   {"harr", 8596},   {"hearts", 9829}, {"hellip", 8230},
    {"image", 8465}, {"infin", 8734},   {"int", 8747},    {"iota", 953},    {"isin", 8712},   {"kappa", 954},
    {"lArr", 8656},  {"lambda", 955},   {"lang", 9001},   {"larr", 8592},   {"lceil", 8968},  {"ldquo", 8220},
    {"le", 8804},    {"lfloor", 8970},  {"lowast", 8727}, {"loz", 9674},    {"lrm", 8206},    {"lsaquo", 8249},
    {"lsquo", 8216}, {"mdash", 8212},   {"minus", 8722},  {"mu", 956},      {"nabla", 8711},  {"ndash", 8211},
    {"ne", 8800},    {"ni", 8715},      {"notin", 8713},  {"nsub", 8836},   {"nu", 957},      {"oelig", 339},
    {"oline", 8254}, {"omega", 969},    {"omicron", 959}, {"oplus", 8853},  {"or", 8744},     {"otimes", 8855},
    {"part", 8706},  {"permil", 8240},  {"perp", 8869},   {"phi", 966},     {"pi", 960},      {"piv", 982},
    {"prime", 8242}, {"prod", 8719},    {"prop", 8733},   {"psi", 968},     {"rArr", 8658},   {"radic", 8730},
    {"rang", 9002},  {"rarr", 8594},    {"rceil", 8969},  {"rdquo", 8221},  {"real", 8476},   {"rfloor", 8971},
    {"rho", 961},    {"rlm", 8207},     {"rsaquo", 8250}, {"rsquo", 8217},  {"sbquo", 8218},  {"scaron", 353},
    {"sdot", 8901},  {"sigma", 963},    {"sigmaf", 962},  {"sim", 8764},    {"spades", 9824}, {"sub", 8834},
    {"sube", 8838},  {"sum", 8721},     {"sup", 8835},    {"supe", 8839},   {"tau", 964},     {"there4", 8756},
    {"theta", 952},  {"thetasym", 977}, {"thinsp", 8201}, {"tilde", 732},   {"trade", 8482},  {"uArr", 8657},
    {"uarr", 8593},  {"upsih", 978},    {"upsilon", 965}, {"weierp", 8472}, {"xi", 958},      {"zeta", 950},
    {"zwj", 8205},   {"zwnj", 8204}};
