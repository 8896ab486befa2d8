// The top level: a counter whose value goes out over the serial port.
`include "include/defs.vh"

module top (
    input  wire                  clk,
    input  wire                  reset_n,
    input  wire                  rx,
    output wire                  tx,
    output wire [`DATA_WIDTH-1:0] leds
);

  wire [`DATA_WIDTH-1:0] count;
  wire                   overflow;

  core u_core (
      .clk     (clk),
      .reset_n (reset_n),
      .count   (count),
      .overflow(overflow)
  );

  uart_tx #(
      .DIVIDER(`UART_DIVIDER)
  ) u_uart_tx (
      .clk    (clk),
      .reset_n(reset_n),
      .start  (overflow),
      .data   (count),
      .tx     (tx)
  );

  assign leds = count ^ {`DATA_WIDTH{rx}};

endmodule
