// Counts up through the arithmetic unit.
import core_pkg::*;

module core (
    input  logic  clk,
    input  logic  reset_n,
    output word_t count,
    output logic  overflow
);

  word_t next;

  alu u_alu (
      .a       (count),
      .b       (word_t'(1)),
      .subtract(1'b0),
      .result  (next),
      .carry   (overflow)
  );

  always_ff @(posedge clk or negedge reset_n) begin
    if (!reset_n) count <= '0;
    else          count <= next;
  end

endmodule
