#include "TKeyboardTables.h"

// Digits, three rows of letters, symbols, the space key, and the dead keys at the end.
constexpr std::array<TKeyboardTables::TLayout, KEYBOARD_LAYOUT_COUNT> TKeyboardTables::Layouts = {{
    {U"1234567890", U"QWERTYUIOP", U"ASDFGHJKL", U"ZXCVBNM", U"-=[]\\:,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTZUIOPÜ", U"ASDFGHJKLÖÄ", U"YXCVBNMß", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTYUIOP", U"ASDFGHJKL¨^", U"ZXCVBNMÇ´`~", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"¨AEIOU´AEIOU`AEIOU^AEIOU~AO"},
    {U"1234567890´", U"AZERTYUIOP^", U"QSDFGHJKLM¨", U"WXCVBNÇÆŒ~`", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"¨AEIOUY´E`AEU^AEIOU~N"},
    {U"1234567890", U"QWERTYUIOP", U"ASDFGHJKL¨^", U"ZXCVBNMÑ´`~", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"¨AEIOU´AEOU`AEIOU^AEIOU~AO"},
    {U"1234567890", U"ЙЦУКЕНГШЩЗХЪ", U"ФЫВАПРОЛДЖЭ", U"ЯЧСМИТЬБЮ", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"ЯВЕРТЪУИОПШ", U"АСДФГХЙКЛЮЩ", U"ЗЬЦЖБНМЫЧЭ", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTYUIOPÅ", U"ASDFGHJKLÄÖ", U"ZXCVBNM", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTYUIOP", U"ASDFGHJKLˇ", U"ZXCVBNMŮ´", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"´AEIOUYˇCDENRSTZ"},
    {U"1234567890", U"QWERTYUIOPÅ", U"ASDFGHJKLÆØ", U"ZXCVBNM", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTYUIOPĄ", U"ASDFGHJKLĘ", U"ZXCVBNMŻŁ´", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"´CNOSZ"},
    {U"1234567890", U"QWERTYUIOP", U"ASDFGHJKLˇ", U"ZXCVBNM¯¸", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"ˇCSZ¯AEIU¸GKLN"},
    {U"1234567890", U"QWERTYUIOP", U"ASDFGHJKLˇ", U"ZXCVBNMĖŪ˛", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"ˇCSZ˛AEIU"},
    {U"1234567890", U"ςΕΡΤΥΘΙΟΠ", U"ΑΣΔΦΓΗΞΚΛ", U"ΖΧΨΩΒΝΜ", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"УЕИШЩКСДЗЦ", U"ЬЯАОЖГТНВМЧ", U"ЮЙЪФХПРЛБ", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"ЯВЕРТЪУИОПШЩ", U"АСДФГХЙКЛЧЮ", U"ЗЬЦЖБНМ", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTYUIOPĂÂ", U"ASDFGHJKLÎŞ", U"ZXCVBNMŢ", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTYUIOPÖ", U"ASDFGHJKLÜ", U"ZXCVBNMŐŰ´", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"´AEIOU"},
    {U"1234567890", U"QWERTYUIOPŠĐ", U"ASDFGHJKLČĆ", U"ZXCVBNMŽ", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTYUIOPĞÜ", U"ASDFGHJKLŞİ", U"ZXCVBNMÖÇ", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTYUIOPÜÕ", U"ASDFGHJKLÖÄ", U"ZXCVBNMŠŽ", U"-=[]\\,./", U" ", nullptr, nullptr, U""},
    {U"1234567890", U"QWERTYUIOPÄ", U"ASDFGHJKLˇ", U"ZXCVBNMÔ´", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"´AEIOUYLRˇCDLNSTZ"},
    {U"1234567890", U"QWERTYUIOP", U"ASDFGHJKL", U"ZXCVBNM´`", U"-=[]\\,./", U" ", nullptr, nullptr,
     U"´AEIOU`AEIOU"},
    {U"1234567890", U"ABCDEF", U"", U"", U"", nullptr, nullptr, nullptr, U""},
}};

// Acute, grave, diaeresis, tilde, circumflex, caron, macron, cedilla, ogonek.
constexpr std::array<char16_t, TKeyboardTables::AccentCount> TKeyboardTables::DeadKeys = {
    180, 96, 168, 126, 94, 711, 175, 184, 731};

constexpr std::array<char32_t const*, TKeyboardTables::AccentCount> TKeyboardTables::AccentedChars = {
    U"ÁBĆDÉFGHÍJKĹMŃÓPQŔŚTÚVWXÝŹ", U"ÀBCDÈFGHÌJKLMNÒPQRSTÙVWXYZ", U"ÄBCDËFGHÏJKLMNÖPQRSTÜVWXŸZ",
    U"ÃBCDEFGHĨJKLMÑÕPQRSTŨVWXYZ", U"ÂBĈDÊFĜĤÎĴKLMNÔPQRŜTÛVŴXŶZ", U"ABČĎĚFGHIJKĽMŇOPQŘŠŤUVWXYŽ",
    U"ĀBCDĒFGHĪJKLMNŌPQRSTŪVWXYZ", U"ABÇDEFĢHIJĶĻMŅOPQŖŞŢUVWXYZ", U"ĄBCDĘFGHĮJKLMNOPQRSTŲVWXYZ"};
