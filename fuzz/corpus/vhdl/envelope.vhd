`protect begin_protected
`protect data_block
abc`def
  ` protect END_PROTECTED
context c is library l; end context;
