#include "src/plugin/handler_table.h"

namespace file_explorer {

void RegisterViewers(const HandlerRow* rows, TxVerifyHeaderCallback verifyHeader, TxExecuteCallback execute) {
  for (const HandlerRow* row = rows; row->guid != nullptr; ++row) {
    Tx_FileFormatHandler(row->guid,                                                     //
                         Tx_Inquire_Token("enabled"), Tx_Inquire_Token("on"), 1,        //
                         Tx_Inquire_Token("function"), Tx_Inquire_Token("viewer"), 1,   //
                         Tx_Inquire_Token("type"), &row->type, 1,                       //
                         Tx_Inquire_Token("filetypes"), row->fileTypes, 1,              //
                         Tx_Inquire_Token("descriptivename"), row->descriptiveName, 1,  //
                         Tx_Inquire_Token("viewer"), Tx_Inquire_Token("verifyheadercallback"),
                         verifyHeader,                                     //
                         Tx_Inquire_Token("executecallback"), execute, 1,  //
                         0);
  }
}

}  // namespace file_explorer
