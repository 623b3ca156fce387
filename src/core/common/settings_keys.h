#pragma once

#include <string_view>

// Sections and keys of the settings store, in one place.
namespace zv::common::settings {

inline constexpr std::string_view kConfigura = "Configura";

inline constexpr std::string_view kMenuXP = "MenuXP";
inline constexpr std::string_view kFormato = "Formato";
inline constexpr std::string_view kCor = "Cor";
inline constexpr std::string_view kCalcHeight = "CalcHeight";
inline constexpr std::string_view kCalcTop = "CalcTop";
inline constexpr std::string_view kCalcLeft2 = "CalcLeft2";
inline constexpr std::string_view kLetrona = "Letrona";
inline constexpr std::string_view kSons = "Sons";
inline constexpr std::string_view kInstrumento = "Instrumento";
inline constexpr std::string_view kFicarSystray = "FicarSystray";
inline constexpr std::string_view kOculte = "Oculte";
inline constexpr std::string_view kCalcEnter = "CalcEnter";
inline constexpr std::string_view kVisivel = "Visivel";
inline constexpr std::string_view kBackup = "Backup";
inline constexpr std::string_view kNumLock = "NumLock";
inline constexpr std::string_view kMonitor = "Monitor";
inline constexpr std::string_view kPorta = "Porta";
inline constexpr std::string_view kUltimoArq = "UltimoArq";
inline constexpr std::string_view kUltimoPath = "UltimoPath";
inline constexpr std::string_view kIdiomas2 = "Idiomas2";
inline constexpr std::string_view kSegur = "Segur";
inline constexpr std::string_view kImpDispo = "ImpDispo";

// Cheque and promissory-note fillers: sections "Cheque", "Cheque1".."Cheque8", "Promissoria",
// "Promissoria1".."Promissoria8". The position keys of each field are in core/documents/document_layout.
inline constexpr std::string_view kCheque = "Cheque";
inline constexpr std::string_view kPromissoria = "Promissoria";
inline constexpr std::string_view kBanco = "Banco";
inline constexpr std::string_view kModelo = "Modelo";
inline constexpr std::string_view kHeight = "Height";
inline constexpr std::string_view kWidth = "Width";
inline constexpr std::string_view kChkAno = "chkAno";
inline constexpr std::string_view kNegrito = "Negrito";
inline constexpr std::string_view kFavorecido = "Favorecido";
inline constexpr std::string_view kCidade = "Cidade";
inline constexpr std::string_view kNumero = "Numero";
inline constexpr std::string_view kPagarei = "Pagarei";
inline constexpr std::string_view kCredor = "Credor";
inline constexpr std::string_view kCredor2 = "Credor2";
inline constexpr std::string_view kEmitente = "Emitente";
inline constexpr std::string_view kEmitente2 = "Emitente2";
inline constexpr std::string_view kEndereco = "Endereço";

// "CalcEnter" holds this when Enter adds; anything else means Enter strikes the total.
inline constexpr std::string_view kEnterAdds = "ok";
inline constexpr std::string_view kEnterStrikes = "no";

}  // namespace zv::common::settings
