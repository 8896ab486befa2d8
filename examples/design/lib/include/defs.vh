`ifndef DEFS_VH
`define DEFS_VH

`define DATA_WIDTH 16

`endif
