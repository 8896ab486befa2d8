`ifndef DEFS_VH
`define DEFS_VH

`define DATA_WIDTH 8
`define UART_DIVIDER 434 // 50 MHz at 115200 baud

`endif
