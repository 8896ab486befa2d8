package core_pkg;

  typedef logic [7:0] word_t;

endpackage
