// A first-in first-out memory of 2**DEPTH words.
module fifo #(
    parameter WIDTH = 8,
    parameter DEPTH = 4
) (
    input  wire             clk,
    input  wire             reset_n,
    input  wire             push,
    input  wire             pop,
    input  wire [WIDTH-1:0] in,
    output wire [WIDTH-1:0] out,
    output wire             empty,
    output wire             full
);

  reg [WIDTH-1:0] words[0:(1 << DEPTH)-1];
  reg [DEPTH:0] head, tail;

  assign out   = words[tail[DEPTH-1:0]];
  assign empty = head == tail;
  assign full  = head == {~tail[DEPTH], tail[DEPTH-1:0]};

  always @(posedge clk or negedge reset_n)
    if (!reset_n) begin
      head <= 0;
      tail <= 0;
    end else begin
      if (push && !full) begin
        words[head[DEPTH-1:0]] <= in;
        head <= head + 1'b1;
      end
      if (pop && !empty) tail <= tail + 1'b1;
    end

endmodule
