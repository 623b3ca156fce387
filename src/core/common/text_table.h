#pragma once

#include <string>
#include <string_view>

#include "core/common/regional.h"

namespace zv::common {

// The three-language interface text table. A text is addressed by id = code * 10 + language.
// Inside a stored text "|" stands for a line break (CR LF) and the characters U+008D, U+008E
// and U+008F mark where the first, second and third argument go (the code points of the
// original single-byte markers 141, 142 and 143).

// The stored text of an id, markers untouched; empty when the id has no text.
std::string_view rawText(int id);

// The text of `code` in `language`: "|" becomes CR LF and the markers become the arguments.
// A code without a text in that language gives an empty string.
std::string GetText(Language language, int code, std::string_view arg1 = {}, std::string_view arg2 = {},
                    std::string_view arg3 = {});

// Codes of texts used by name in the code. The numbered table runs from 4 to 219 and 900 to
// 999; the codes from 220 on hold captions and messages of ours that it leaves out.
namespace txt {
inline constexpr int kTips = 7;  // "DICAS DE OPERAÇÃO: ..."
inline constexpr int kBrowserFailed = 8;
inline constexpr int kMidiError = 9;
inline constexpr int kEditWhileCalculating = 12;
inline constexpr int kMailFailed = 13;  // with the support address
inline constexpr int kEnterAddsInfo = 14;
inline constexpr int kSentToPrinter = 16;
inline constexpr int kTapeFull = 4;  // a long tape: erase it before a tool's block?
inline constexpr int kPrinterFailed = 17;
inline constexpr int kFindEnd = 18;
inline constexpr int kSystemCalculatorMissing = 19;
inline constexpr int kInvalidSelection = 20;
inline constexpr int kPrintButton = 215;       // "&Imprimir"
inline constexpr int kScheduleCancelled = 38;  // "Agendamento Cancelado"
inline constexpr int kConfirmShutdown = 39;    // with the time
inline constexpr int kProtectionOff = 40;
inline constexpr int kConfirmProtection = 41;
inline constexpr int kProtectionOn = 42;
inline constexpr int kAlarmMessage = 43;  // with the time and the reason
inline constexpr int kMnuAlarmeAt = 45;   // "Tocar Alarme às ... hs."
inline constexpr int kFindPrompt = 55;
inline constexpr int kFindTitle = 56;
inline constexpr int kInstrumentPrompt = 57;
inline constexpr int kInstrumentTitle = 58;  // " Escolher Som do Teclado"
inline constexpr int kTimePrompt = 66;
inline constexpr int kMnuAlarme = 67;  // " Agendar Horário para Alarme"
inline constexpr int kReasonPrompt = 68;
inline constexpr int kShutdownPrompt = 69;
inline constexpr int kMnuDesligar = 70;    // " Agendar Horário para Desligar o PC"
inline constexpr int kMnuDesligarAt = 80;  // "Desligar o Computador às ... hs."
inline constexpr int kMnuSystray = 81;     // "Exibir Calculadora ..." with the hot key
inline constexpr int kMnuUtilTray = 83;    // "Utilitários"
inline constexpr int kMnuProteger = 84;
inline constexpr int kMnuAtalho = 85;
inline constexpr int kMnuSair = 87;
inline constexpr int kMnuOpcoes = 88;
inline constexpr int kMnuOutra = 89;
inline constexpr int kMnuWindows = 90;
inline constexpr int kMnuData = 91;
inline constexpr int kMnuTempo = 92;
inline constexpr int kMnuJuro = 93;
inline constexpr int kMnuCopiar = 94;
inline constexpr int kMnuFita = 96;
inline constexpr int kMnuEditar = 97;
inline constexpr int kMnuLocalizar = 98;
inline constexpr int kMnuLimpar = 99;
inline constexpr int kMnuImprimir = 100;  // 100..102: small, medium, large letters
inline constexpr int kMnuForm = 103;
inline constexpr int kMnuOcultar = 104;
inline constexpr int kMnuFicar = 105;
inline constexpr int kMnuMonit = 106;
inline constexpr int kMnuVisivel = 107;
inline constexpr int kMnuNumeralMenu = 108;
inline constexpr int kMnuNumeral = 109;  // 109..111: the three formats
inline constexpr int kMnuEsquema = 112;
inline constexpr int kMnuCor = 113;  // 113..116: the four schemes
inline constexpr int kMnuSomEscolher = 117;
inline constexpr int kMnuSemSom = 118;
inline constexpr int kBeep = 119;  // mnuBeep "&Beep, Beep..."
inline constexpr int kMnuSom = 120;
inline constexpr int kMnuIdioma = 121;
inline constexpr int kMnu4 = 122;  // the Enter key's submenu
inline constexpr int kMnuEnter = 123;
inline constexpr int kMnuIgual = 124;
inline constexpr int kMnuAjuda = 125;
inline constexpr int kMnuCalc = 126;
inline constexpr int kMnuEmail = 128;
inline constexpr int kClearCaption = 161;  // " Limpar "
inline constexpr int kMnuMostraBack = 169;
inline constexpr int kMnuBackup = 170;
inline constexpr int kBackupMissing = 171;
inline constexpr int kBackupOpenFailed = 172;  // with the file
inline constexpr int kBackupTooLarge = 173;
inline constexpr int kMnuAgrupar = 174;
inline constexpr int kMnuMatricial = 175;
inline constexpr int kPortPrompt = 176;
inline constexpr int kMnuRegra = 177;
inline constexpr int kRuleTitle = 178;          // " Cálculo de Regra de Três"
inline constexpr int kRuleFirstExample = 179;   // 179..187 its boxes, 188..191 its descriptions
inline constexpr int kRuleSecondExample = 192;  // 192..196 its boxes
inline constexpr int kRuleBaseHeading = 202;    // "DADOS BASE"
inline constexpr int kRuleNewHeading = 203;     // "ENCONTRAR"
inline constexpr int kRuleValueHeading = 204;
inline constexpr int kRuleDescriptionHeading = 205;
inline constexpr int kRuleQuestion = 206;   // with the known row's and the unknown's descriptions
inline constexpr int kRuleExample = 207;    // "Exemplo"
inline constexpr int kRuleCalculate = 151;  // "&Calcular"
inline constexpr int kMnuGrande = 214;
inline constexpr int kMnuNumLock = 216;
inline constexpr int kMnuUndo = 217;
inline constexpr int kRestartNeeded = 218;
inline constexpr int kMnuRedo = 219;

inline constexpr int kMnuExtenso = 220;  // "Copiar o Visor por &Extenso"
inline constexpr int kMnuCheque = 221;
inline constexpr int kMnuPromissoria = 222;
inline constexpr int kMnuConverte = 223;
inline constexpr int kMnuUtil = 224;
inline constexpr int kMnuSalvar = 225;
inline constexpr int kMnuXP = 226;             // "Office XP menu"
inline constexpr int kSignTooltip = 227;       // " Positivo/Negativo "
inline constexpr int kWordsInvalid = 228;      // "Dados inválidos para se converter por extenso"
inline constexpr int kWordsOnClipboard = 229;  // "Valor por extenso colocado na Área de Transferência."
inline constexpr int kPasteHint = 230;         // "(Use colar: Ctrl+V)"
inline constexpr int kSaveFilterName = 231;    // "Documento Texto (*.txt)"
inline constexpr int kWaitForPrinter = 232;    // "Aguarde o término da impressão ..."
inline constexpr int kMnuPortuguese = 233;
inline constexpr int kMnuEnglish = 234;
inline constexpr int kMnuSpanish = 235;
inline constexpr int kBackupWriteFailed = 236;  // the backup failed, so the tape was kept
inline constexpr int kSaveFailed = 237;         // with the file name
inline constexpr int kDisplayName = 238;        // accessible names of the window's parts
inline constexpr int kTotalName = 239;
inline constexpr int kCounterName = 240;
inline constexpr int kKeypadName = 241;
inline constexpr int kPortFailed = 242;  // with the port and the device
inline constexpr int kBackspaceName = 243;
inline constexpr int kShortcutCreated = 244;  // with where it went
inline constexpr int kShortcutFailed = 245;
inline constexpr int kButtonYes = 246;  // the question box's buttons
inline constexpr int kButtonNo = 247;
inline constexpr int kButtonCancel = 248;
inline constexpr int kPageOfPages = 249;  // the printed page's heading: the page, the page count
inline constexpr int kPreviewTitle = 250;
inline constexpr int kPreviewPrevious = 251;
inline constexpr int kPreviewNext = 252;
inline constexpr int kPreviewZoomIn = 253;
inline constexpr int kPreviewZoomOut = 254;
inline constexpr int kClose = 255;
inline constexpr int kEditNotAmount = 256;  // leaving the tape's edit with a line that is no amount
inline constexpr int kInstrumentRange = 257;
inline constexpr int kFind = 258;            // the backup viewer's find button
inline constexpr int kConverterTitle = 259;  // the unit converter's captions
inline constexpr int kConverterValue = 260;
inline constexpr int kConverterSource = 261;
inline constexpr int kConverterHint = 262;
inline constexpr int kConverterResult = 263;
inline constexpr int kConverterEnterHint = 264;
inline constexpr int kConverterCopied = 265;
inline constexpr int kScheduleButton = 290;  // the instalment tool's payment schedule
inline constexpr int kScheduleTitle = 291;
inline constexpr int kScheduleColumns =
    292;  // 292..297: instalment, due, payment, interest, principal, balance
inline constexpr int kCopy = 298;
inline constexpr int kPrintButtonEllipsis = 299;
inline constexpr int kSavePdf = 300;
inline constexpr int kLastAbsorbsRounding = 301;
inline constexpr int kNothingToGroup = 302;
inline constexpr int kPlanNotes = 304;    // the schedule's promissory notes, one per instalment
inline constexpr int kPlanCheques = 305;  // and its post-dated cheques

// Cheque and promissory-note fillers.
inline constexpr int kAmountOutOfRange = 900;     // with the lowest and the highest amount
inline constexpr int kChangesCancelled = 944;     // "Alterações canceladas pelo usuário"
inline constexpr int kScreenTooSmall = 947;       // the note window on a screen under 800 pixels
inline constexpr int kSaveChangesQuestion = 948;  // with the model's name
inline constexpr int kChequeModelPrompt = 971;
inline constexpr int kSaveModelTitle = 972;  // " Salvar Modelo"
inline constexpr int kNoteModelPrompt = 973;
inline constexpr int kDueDatePrompt = 974;
inline constexpr int kNoPrinterChosen = 360;
inline constexpr int kLayoutsBackedUp = 361;     // with the file
inline constexpr int kPayeeDeleteHint = 362;     // with the payee file
inline constexpr int kNotABackup = 363;          // with the file
inline constexpr int kForeignSection = 364;      // with the line number and the section
inline constexpr int kBackupBadLine = 365;       // with the line number and the line
inline constexpr int kValueBeforeSection = 366;  // with the line number and the line
inline constexpr int kSettingsNotWritten = 367;
inline constexpr int kFileNotRead = 368;     // with the file
inline constexpr int kFileNotWritten = 369;  // with the file
// The cheque and promissory-note windows and the printer choice.
inline constexpr int kChequeTitle = 370;
inline constexpr int kNoteTitle = 371;
inline constexpr int kFourDigitYear = 372;  // chkAno
inline constexpr int kBoldFont = 373;       // chkNegrito
inline constexpr int kMoveChequeFields = 374;
inline constexpr int kMoveNoteFields = 375;
inline constexpr int kCopies = 376;
inline constexpr int kSaveModel = 377;
inline constexpr int kPrinterButton = 378;
inline constexpr int kBackupLayouts = 379;
inline constexpr int kSaveAsPdf = 380;
inline constexpr int kPrinterChoiceTitle = 381;
inline constexpr int kPrinterHeading = 382;
inline constexpr int kPrinterPort = 383;
inline constexpr int kUseDefaultPrinter = 384;
inline constexpr int kPrinterHint = 385;
inline constexpr int kBackupDialogTitle = 386;
inline constexpr int kRegistryFilter = 387;
inline constexpr int kFieldTips = 388;   // 388..396: the fields' tooltips
inline constexpr int kMoveNotice = 999;  // how to move the fields
}  // namespace txt

}  // namespace zv::common
