#pragma once

#include <QLatin1StringView>
#include <QStringList>

// The words of the command channel, written once for the client and the server. A message is
// a command word followed by its payload; a reply begins with the prefix the client's
// dispatcher (link/Woordenlijst) tests, which is not always the request's word.
namespace tk::wire {

// The four separators, from the widest to the narrowest. Which one joins which level is the
// layout of each message: a class record's fields are joined by fieldSep when the server
// sends a block of records, and by itemSep when the client saves one record.
inline constexpr QLatin1StringView recordSep{";|;"};
inline constexpr QLatin1StringView fieldSep{";<>;"};
inline constexpr QLatin1StringView itemSep{"><"};
inline constexpr QLatin1Char valueSep{'|'};

// Whether texts joined by `sep` split back into the same texts: one that holds the separator, or
// ends or begins with a piece of it, would come back cut elsewhere.
inline bool splitsBack(const QStringList& parts, QLatin1StringView sep) {
    return parts.join(sep).split(sep) == parts;
}

// Reply endings: a word + ok or fout says whether the server carried the request out; ja and
// nee answer a question.
inline constexpr QLatin1StringView ok{"OK"};
inline constexpr QLatin1StringView fout{"FOUT"};
inline constexpr QLatin1StringView ja{"JA"};
inline constexpr QLatin1StringView nee{"NEE"};

// The kind letters of categories and applications: class (K), teacher (L), general (A).
inline constexpr QLatin1StringView kindLetters{"KLA"};

// --- the connection
inline constexpr QLatin1StringView PIN{"PIN"};   // the server's keep-alive
inline constexpr QLatin1StringView PING{"PING"}; // the client's answer to it
inline constexpr QLatin1StringView TST{"TST"};   // is the line alive
inline constexpr QLatin1StringView LOC{"LOC"};   // + location of the client
inline constexpr QLatin1StringView FIR{"FIR"};   // firewall test; answered + domain

// --- the client introduces itself, and the maintenance-module handshake
inline constexpr QLatin1StringView INF{"INF"};
inline constexpr QLatin1StringView INFVER{"INFVER"}; // + client version
inline constexpr QLatin1StringView INFDMN{"INFDMN"}; // domain and ports
inline constexpr QLatin1StringView INFCOM{"INFCOM"}; // + computer name
inline constexpr QLatin1StringView INFAFM{"INFAFM"};
inline constexpr QLatin1StringView INFAFS{"INFAFS"};
inline constexpr QLatin1StringView INFOND{"INFOND"}; // is a maintenance module open elsewhere
inline constexpr QLatin1StringView INFONA{"INFONA"}; // ask the one inside to make room
inline constexpr QLatin1StringView INFONB{"INFONB"}; // the newcomer gives up
inline constexpr QLatin1StringView INFONC{"INFONC"}; // the one inside refuses

// --- accounts of the workstation
inline constexpr QLatin1StringView ACD{"ACD"};
inline constexpr QLatin1StringView ACDCON{"ACDCON"}; // + account: does it exist
inline constexpr QLatin1StringView ACDNIE{"ACDNIE"}; // + a new account
inline constexpr QLatin1StringView ACDVWR{"ACDVWR"}; // + account to remove

// --- client updates
inline constexpr QLatin1StringView UPD{"UPD"};
inline constexpr QLatin1StringView UPDVER{"UPDVER"};
inline constexpr QLatin1StringView UPDCON{"UPDCON"};
inline constexpr QLatin1StringView UPDOPH{"UPDOPH"};
inline constexpr QLatin1StringView UPDOPHINF{"UPDOPHINF"};
inline constexpr QLatin1StringView UPDOPHREQ{"UPDOPHREQ"};

// --- problem calls
inline constexpr QLatin1StringView HLP{"HLP"};
inline constexpr QLatin1StringView HLPOPS{"HLPOPS"}; // + a fault report or a problem call
inline constexpr QLatin1StringView HLPSNC{"HLPSNC"};
inline constexpr QLatin1StringView HLPLDN{"HLPLDN"};
inline constexpr QLatin1StringView HLPSCR{"HLPSCR"};
inline constexpr QLatin1StringView HLPVWN{"HLPVWN"};

// --- backups
inline constexpr QLatin1StringView BCK{"BCK"};
inline constexpr QLatin1StringView BCKLST{"BCKLST"};
inline constexpr QLatin1StringView BCKMKB{"BCKMKB"};
inline constexpr QLatin1StringView BCKRST{"BCKRST"};

// --- loading
inline constexpr QLatin1StringView LDN{"LDN"};
inline constexpr QLatin1StringView LDNKLSSNC{"LDNKLSSNC"}; // classes: last block and last ID
inline constexpr QLatin1StringView LDNKLSDA{"LDNKLSDA"};   // + block number
inline constexpr QLatin1StringView LDNLRNSNC{"LDNLRNSNC"}; // teachers: last block and last ID
inline constexpr QLatin1StringView LDNLRNDA{"LDNLRNDA"};   // + block number
inline constexpr QLatin1StringView LDNCA{"LDNCA"};         // + kind letter: the categories
inline constexpr QLatin1StringView LDNCAK{"LDNCAK"};
inline constexpr QLatin1StringView LDNCAL{"LDNCAL"};
inline constexpr QLatin1StringView LDNCAA{"LDNCAA"};
// Applications: LDNAP + kind letter + SNC (count and last ID) or DAT + number (one record).
inline constexpr QLatin1StringView LDNAP{"LDNAP"};
inline constexpr QLatin1StringView SNC{"SNC"};
inline constexpr QLatin1StringView DAT{"DAT"};
inline constexpr QLatin1StringView LDNAPK{"LDNAPK"};
inline constexpr QLatin1StringView LDNAPL{"LDNAPL"};
inline constexpr QLatin1StringView LDNAPA{"LDNAPA"};
inline constexpr QLatin1StringView LDNAPKSNC{"LDNAPKSNC"};
inline constexpr QLatin1StringView LDNAPLSNC{"LDNAPLSNC"};
inline constexpr QLatin1StringView LDNAPASNC{"LDNAPASNC"};
inline constexpr QLatin1StringView LDNAPKDAT{"LDNAPKDAT"};
inline constexpr QLatin1StringView LDNAPLDAT{"LDNAPLDAT"};
inline constexpr QLatin1StringView LDNAPADAT{"LDNAPADAT"};
inline constexpr QLatin1StringView LDNAPP{"LDNAPP"};
inline constexpr QLatin1StringView LDNAPPPOS{"LDNAPPPOS"}; // + K or L and the owner's ID
// Icons of applications.
inline constexpr QLatin1StringView LDNPIC{"LDNPIC"};
inline constexpr QLatin1StringView LDNPICWIJ{"LDNPICWIJ"}; // the change dates
inline constexpr QLatin1StringView LDNPICGRP{"LDNPICGRP"};
inline constexpr QLatin1StringView LDNPICLRN{"LDNPICLRN"};
inline constexpr QLatin1StringView LDNPICALG{"LDNPICALG"};
inline constexpr QLatin1StringView LDNPICSTD{"LDNPICSTD"};
inline constexpr QLatin1StringView LDNPICGRL{"LDNPICGRL"};
inline constexpr QLatin1StringView LDNPICLRL{"LDNPICLRL"};
inline constexpr QLatin1StringView LDNPICALL{"LDNPICALL"};
inline constexpr QLatin1StringView LDNPICPAK{"LDNPICPAK"}; // + the icons asked, as a package
// The items of LDNPICPAK, joined by fieldSep: a group word + valueSep + the IDs joined by
// valueSep, or picStandaard for the standard icon library.
inline constexpr QLatin1StringView picGroep{"groep"};
inline constexpr QLatin1StringView picLeerkracht{"leerkracht"};
inline constexpr QLatin1StringView picAlgemeen{"algemeen"};
inline constexpr QLatin1StringView picStandaard{"standaard"};
// Settings and the smaller sets.
inline constexpr QLatin1StringView LDNWCH{"LDNWCH"}; // the two passwords
inline constexpr QLatin1StringView LDNOVR{"LDNOVR"}; // the other settings
inline constexpr QLatin1StringView LDNTAA{"LDNTAA"}; // the language
inline constexpr QLatin1StringView LDNIVW{"LDNIVW"}; // the forbidden words
inline constexpr QLatin1StringView LDNIVWINF{"LDNIVWINF"};
inline constexpr QLatin1StringView LDNIVWPA{"LDNIVWPA"}; // + page number
inline constexpr QLatin1StringView LDNITS{"LDNITS"};     // the allowed sites
inline constexpr QLatin1StringView LDNFAV{"LDNFAV"};     // + owner: the favourites
inline constexpr QLatin1StringView LDNWSA{"LDNWSA"};
inline constexpr QLatin1StringView LDNSIN{"LDNSIN"}; // the server's own settings
inline constexpr QLatin1StringView LDNMOD{"LDNMOD"};
inline constexpr QLatin1StringView LDNPRN{"LDNPRN"};
inline constexpr QLatin1StringView LDNGRP{"LDNGRP"};
inline constexpr QLatin1StringView LDNGRPGLB{"LDNGRPGLB"};
inline constexpr QLatin1StringView LDNGRPLKL{"LDNGRPLKL"};
inline constexpr QLatin1StringView LDNACC{"LDNACC"};
inline constexpr QLatin1StringView LDNACCINF{"LDNACCINF"};
inline constexpr QLatin1StringView LDNACCLST{"LDNACCLST"};
// Themes.
inline constexpr QLatin1StringView LDNTH{"LDNTH"}; // + ID: the theme's package
inline constexpr QLatin1StringView LDNTHE{"LDNTHE"};
inline constexpr QLatin1StringView LDNTHD{"LDNTHD"};
inline constexpr QLatin1StringView LDNTHO{"LDNTHO"};
inline constexpr QLatin1StringView LDNTHV{"LDNTHV"};

// --- saving
inline constexpr QLatin1StringView OPS{"OPS"};
inline constexpr QLatin1StringView OPSINS{"OPSINS"};
inline constexpr QLatin1StringView OPSKLS{"OPSKLS"};
inline constexpr QLatin1StringView OPSKLZ{"OPSKLZ"}; // + one class
inline constexpr QLatin1StringView OPSLRN{"OPSLRN"}; // + all teachers
inline constexpr QLatin1StringView OPSLRZ{"OPSLRZ"}; // + one teacher
inline constexpr QLatin1StringView OPSCAT{"OPSCAT"};
inline constexpr QLatin1StringView OPSCAN{"OPSCAN"};
inline constexpr QLatin1StringView OPSAPP{"OPSAPP"};
inline constexpr QLatin1StringView OPSAPPNIE{"OPSAPPNIE"};
inline constexpr QLatin1StringView OPSAPPPOS{"OPSAPPPOS"};
inline constexpr QLatin1StringView OPSAP2{"OPSAP2"};
inline constexpr QLatin1StringView OPSBEH{"OPSBEH"};
inline constexpr QLatin1StringView OPSFAV{"OPSFAV"};
// + OPSVBWkop + a piece of the forbidden words under 2000 characters; every piece after the
// first begins with "+" and adds to the pieces before it.
inline constexpr QLatin1StringView OPSVBW{"OPSVBW"};
inline constexpr QLatin1StringView OPSVBWkop{";<"};
inline constexpr QLatin1StringView OPSITS{"OPSITS"};
inline constexpr QLatin1StringView OPSWAG{"OPSWAG"};
inline constexpr QLatin1StringView OPSSIN{"OPSSIN"};
inline constexpr QLatin1StringView OPSTEL{"OPSTEL"}; // + a start of an application, counted

// --- deleting
inline constexpr QLatin1StringView VWN{"VWN"};
inline constexpr QLatin1StringView VWNKLS{"VWNKLS"};
inline constexpr QLatin1StringView VWNLRN{"VWNLRN"};
inline constexpr QLatin1StringView VWNAPP{"VWNAPP"};
inline constexpr QLatin1StringView VWNCAT{"VWNCAT"};

// --- the transfer sockets: one file offered, taken or refused, and received
// FIS + size + valueSep + offer number + fileNameSep + file name: a file offered.
inline constexpr QLatin1StringView FIS{"FIS"};
inline constexpr QLatin1Char fileNameSep{'@'};
inline constexpr QLatin1StringView CNT{"CNT"}; // the receiver's command socket is connected
inline constexpr QLatin1StringView ACP{"ACP"}; // the offer is taken: send the bytes
inline constexpr QLatin1StringView RFS{"RFS"}; // the offer is refused
inline constexpr QLatin1StringView RFC{"RFC"}; // every byte arrived
inline constexpr QLatin1StringView FSC{"FSC"}; // the sender's end of a transfer

} // namespace tk::wire
